// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/EventMonitor.h"
#include "platform/x11/X11KeyGrabs.h"

#include <functional>

namespace Tessel {

/// The trigger, kept from the application in front: what that does with the key (open an editor of
/// its own, replace the selection) would end the selection before it is copied. Only the key itself
/// is kept: the keyboard goes back at once, or the copy shortcut would come to us.
class X11TriggerKey final
{
public:
    X11TriggerKey(X11Connection &connection, X11KeyGrabs &grabs, std::function<void()> pressed);

    void set(const KeyChord &chord);
    [[nodiscard]] const KeyChord &chord() const { return m_chord; }

    /// Our own windows get their keys.
    void setWatching(bool isWatching);

    /// Another client has the key: it can only be observed.
    [[nodiscard]] bool isShared() const { return m_isShared; }

    /// Tries again: another client may have let the key go, or taken it.
    void retry();

    /// Presses the key that was kept last for the application, once.
    void passOn();

private:
    void grab();
    void handle(const X11Stroke &stroke, X11KeyGrabs::Change change);

    X11Connection &m_connection;
    X11KeyGrabs &m_grabs;
    std::function<void()> m_pressed;
    KeyChord m_chord;
    std::unique_ptr<X11KeyGrabs::Hold> m_hold;
    bool m_isWatching = true;
    bool m_isShared = false;
    quint8 m_keptKey = 0; ///< an X keycode; 0: none
};

}
