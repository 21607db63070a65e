// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QList>

#include <array>

namespace Tessel {

class X11Connection;

/// The window manager and the windows that it manages (EWMH). Requests are made as a task bar's or
/// pager's, which window managers do not take for attempts to steal the focus.
class X11WindowManager final
{
public:
    explicit X11WindowManager(X11Connection &connection)
        : m_connection(connection)
    {
    }

    [[nodiscard]] QList<quint32> windows() const; ///< the topmost first
    [[nodiscard]] quint32 activeWindow() const; ///< 0: none
    [[nodiscard]] bool isHidden(quint32 window) const;

    void activate(quint32 window);
    void close(quint32 window);
    void moveToCurrentDesktop(quint32 window);

private:
    void request(quint32 window, const char *message, const std::array<quint32, 5> &data);

    X11Connection &m_connection;
};

}
