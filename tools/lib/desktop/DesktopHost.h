// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "lib/desktop/DesktopApplications.h"
#include "lib/desktop/DesktopClipboard.h"
#include "lib/desktop/DesktopDialogs.h"
#include "lib/desktop/DesktopKeyboard.h"
#include "lib/desktop/DisplayConnection.h"
#include "lib/shortcuts/UserShortcuts.h"

namespace Tessel {

/// The computer as a script finds it: a desktop, or none. Costs nothing until it is used;
/// needs the application object by then.
class DesktopHost final
{
public:
    /// The folder has pbcopy, tessel-dialog and the other helpers.
    explicit DesktopHost(const QString &helperFolder = QCoreApplication::applicationDirPath());
    Q_DISABLE_COPY_MOVE(DesktopHost)

    /// Lives as long as this object.
    [[nodiscard]] Osascript::Host host();

private:
    DisplayConnection m_display;
    DesktopClipboard m_clipboard;
    DesktopKeyboard m_keyboard;
    DesktopDialogs m_dialogs;
    DesktopApplications m_applications;
    UserShortcuts m_shortcuts;
};

}
