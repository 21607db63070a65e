// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/X11SelectionWatch.h"

#include <QByteArray>

namespace Tessel {

class X11Event;

/// The program that manages something for a screen, such as its tray, and what it says about that
/// in a property of its window. It is known by the selection that it owns (ICCCM, section 2.8).
class X11Manager final
{
public:
    enum class Change { manager, property };

    /// `selection`: its name without the screen's number.
    X11Manager(X11Connection &connection, const char *selection, const char *property,
               std::function<void(Change)> changed);

    [[nodiscard]] quint32 window() const { return m_window; } ///< 0: there is none
    [[nodiscard]] quint32 property() const { return m_property; } ///< an atom

private:
    void handle(const X11Event &event);
    void follow(quint32 window);

    X11Connection &m_connection;
    std::function<void(Change)> m_changed;
    quint32 m_property;
    quint32 m_window = 0;
    X11SelectionWatch m_watch;
    std::shared_ptr<void> m_subscription;
};

}
