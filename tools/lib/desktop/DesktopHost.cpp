// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "lib/desktop/DesktopHost.h"

namespace Tessel {

DesktopHost::DesktopHost(const QString &helperFolder)
    : m_clipboard(m_display, helperFolder)
    , m_dialogs(m_display, helperFolder)
    , m_applications(m_display)
    , m_shortcuts(helperFolder)
{
}

Osascript::Host DesktopHost::host()
{
    return { m_clipboard, m_keyboard, m_dialogs, m_applications, m_shortcuts };
}

}
