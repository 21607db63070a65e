// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "DesktopClipboard.h"

#include "ClipboardReader.h"
#include "DisplayConnection.h"
#include "RunProgram.h"

using namespace Qt::StringLiterals;

DesktopClipboard::DesktopClipboard(DisplayConnection &display, QString helperFolder)
    : m_display(display)
    , m_helperFolder(std::move(helperFolder))
{
}

std::optional<QString> DesktopClipboard::text()
{
    X11Connection *connection = m_display.connection();
    const auto bytes = connection ? clipboardText(*connection) : std::nullopt;
    return bytes ? std::optional(QString::fromUtf8(*bytes)) : std::nullopt;
}

osascript::Failure DesktopClipboard::setText(const QString &text)
{
    const auto result = runProgram(m_helperFolder + u"/pbcopy"_s, {}, text.toUtf8());
    if (result.failure || result.exitStatus == 0)
        return result.failure;
    return QString::fromUtf8(result.errorOutput).trimmed();
}
