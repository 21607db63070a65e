// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/TesselProcess.h"
#include "support/DesktopSession.h"
#include "support/XUser.h"

namespace Tessel {

/// The program as a user of a private X11 desktop has it.
class TesselProgram : public TesselProcess
{
public:
    explicit TesselProgram(Desktop::DesktopSession &session);

    /// Presses the trigger key and waits for the bar; nothing when it does not come. After another
    /// capture it waits until the program listens again.
    [[nodiscard]] std::optional<Desktop::WindowInfo> summon();
    [[nodiscard]] std::optional<Desktop::WindowInfo> bar() const; ///< when it is on the screen
    [[nodiscard]] std::optional<Desktop::WindowInfo> waitForBar() const;
    [[nodiscard]] bool waitUntilBarGone() const;

    /// One of the program's other windows, when it has come.
    [[nodiscard]] std::optional<Desktop::WindowInfo> waitForWindow(const QString &title) const;

    /// Presses Ctrl and comma in the bar; the settings window when it has the keyboard.
    [[nodiscard]] std::optional<Desktop::WindowInfo> openSettings();

    /// Middle of a button of the standard width, in pixels of the root window at scale 1.
    [[nodiscard]] static QPoint button(const Desktop::WindowInfo &bar, int index);

private:
    Desktop::DesktopSession &m_session;
};

}
