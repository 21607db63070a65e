// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/X11SelectionWatch.h"

#include <memory>
#include <optional>

namespace Tessel {

class X11Event;

/// Whose text the PRIMARY selection is, and since when. Whatever is marked with the mouse or by
/// keys takes it, in any application.
class X11PrimarySelection final
{
public:
    explicit X11PrimarySelection(X11Connection &connection);

    /// Whether its text was marked in this window, which is active: its program has it, or one that
    /// this has started (or was started by) and that has taken it since the window is active. 0:
    /// whether it was marked in a window that is none of X11's. mutter, as the window manager of
    /// XWayland, hands that text on in its own name.
    [[nodiscard]] bool isMarkedIn(quint32 window) const;

    /// Whether it was taken since the active window is active. Some programs keep it for long after
    /// nothing is marked any more.
    [[nodiscard]] bool isNewerThanFocus() const;

private:
    void handle(const X11Event &event);

    X11Connection &m_connection;
    quint32 m_activeWindow = 0;
    std::optional<quint32> m_activeSince; ///< server time, as below; nothing: before our start
    std::optional<quint32> m_takenAt;
    X11SelectionWatch m_watch;
    std::shared_ptr<void> m_rootEvents;
    std::shared_ptr<void> m_subscription;
};

}
