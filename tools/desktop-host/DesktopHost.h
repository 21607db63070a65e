// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "DesktopApplications.h"
#include "DesktopClipboard.h"
#include "DesktopDialogs.h"
#include "DesktopKeyboard.h"
#include "DisplayConnection.h"
#include "UserShortcuts.h"

/// The computer as a script finds it: an X11 desktop, or none. Costs nothing until it is used;
/// needs the application object by then.
class DesktopHost final
{
public:
    /// The folder has pbcopy, tessel-dialog and the other helpers.
    explicit DesktopHost(const QString &helperFolder = QCoreApplication::applicationDirPath());
    Q_DISABLE_COPY_MOVE(DesktopHost)

    /// Lives as long as this object.
    [[nodiscard]] osascript::Host host();

private:
    DisplayConnection m_display;
    DesktopClipboard m_clipboard;
    DesktopKeyboard m_keyboard;
    DesktopDialogs m_dialogs;
    DesktopApplications m_applications;
    UserShortcuts m_shortcuts;
};
