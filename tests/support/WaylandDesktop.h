// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "support/Session.h"
#include "support/User.h"

#include <QImage>

namespace Tessel::Desktop {

// A private desktop of Wayland programs, whose windows are in its top left corner, with the bare
// desktop beside them.
class WaylandDesktop : public Session
{
public:
    static constexpr QSize outputSize { 1280, 800 }; // pixels
    static constexpr QSize windowSize { 500, 300 }; // logical

    // Valid once the desktop is up.
    [[nodiscard]] User &user() const { return *m_user; }

    // Until a window with this app_id has the keyboard, or an X11 program of this window class.
    // KWin does not tell: there the user has to try.
    [[nodiscard]] virtual bool waitForFocus(const QString &application) = 0;

    // Everything that is to be seen, in pixels; null when that fails.
    [[nodiscard]] virtual QImage screenshot() = 0;
    // What is marked, and what was copied, as any program may read it; empty: nothing.
    [[nodiscard]] virtual QString primarySelection() = 0;
    [[nodiscard]] virtual QString clipboard() = 0;

protected:
    [[nodiscard]] bool setUser(std::unique_ptr<User> user);

private:
    std::unique_ptr<User> m_user;
};

}
