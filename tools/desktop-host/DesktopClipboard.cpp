// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "DesktopClipboard.h"

#include "ClipboardReader.h"
#include "DisplayConnection.h"

#include <QProcess>

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
    QProcess pbcopy;
    pbcopy.start(m_helperFolder + u"/pbcopy"_s, QStringList());
    pbcopy.write(text.toUtf8());
    pbcopy.closeWriteChannel();
    if (!pbcopy.waitForFinished(-1))
        return pbcopy.errorString();
    if (pbcopy.exitCode() != 0)
        return QString::fromUtf8(pbcopy.readAllStandardError()).trimmed();
    return {};
}
