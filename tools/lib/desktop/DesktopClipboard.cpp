// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "lib/desktop/DesktopClipboard.h"

#include "base/TextRules.h"
#include "lib/desktop/DisplayConnection.h"
#include "lib/support/RunProgram.h"
#include "platform/TextClipboard.h"

using namespace Qt::StringLiterals;

namespace Tessel {

DesktopClipboard::DesktopClipboard(DisplayConnection &display, QString helperFolder)
    : m_display(display)
    , m_helperFolder(std::move(helperFolder))
{
}

std::optional<QString> DesktopClipboard::text()
{
    HelperPlatform *desktop = m_display.platform().valueOr(nullptr);
    const auto bytes = desktop ? desktop->clipboard().text() : std::nullopt;
    return bytes ? std::optional(exactText(*bytes)) : std::nullopt;
}

Result<void> DesktopClipboard::setText(const QString &text)
{
    const auto copied = runProgram(m_helperFolder + u"/pbcopy"_s, {}, text.toUtf8());
    return copied ? Result<void>() : copied.error();
}

}
