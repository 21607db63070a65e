// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QList>

namespace Tessel {

class X11Connection;

/// The applications' windows as the window manager has them (EWMH). Requests are made as a task
/// bar's, which window managers do not take for attempts to steal the focus.
class ClientWindows final
{
public:
    explicit ClientWindows(X11Connection &connection)
        : m_connection(connection)
    {
    }

    [[nodiscard]] QList<quint32> all() const; ///< the topmost first
    [[nodiscard]] quint32 active() const; ///< 0: none
    [[nodiscard]] qint64 processId(quint32 window) const; ///< 0 when it does not say
    [[nodiscard]] bool isHidden(quint32 window) const;

    /// Waits for a moment until the window manager has done it.
    void activate(quint32 window);
    void close(quint32 window);

private:
    [[nodiscard]] QList<quint32> items(quint32 window, const char *property) const;
    void request(quint32 window, const char *message, quint32 first, quint32 second);

    X11Connection &m_connection;
};

}
