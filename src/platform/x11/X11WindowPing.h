// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <chrono>
#include <functional>
#include <memory>

namespace Tessel {

class X11Connection;
class X11Event;

/// Asks a window's program for a sign of life (EWMH, _NET_WM_PING), which programs give in the
/// order of their events: then it has looked at all that the server has sent it.
class X11WindowPing final
{
public:
    /// Whether the window's program says that it answers.
    [[nodiscard]] static bool isAnswered(const X11Connection &connection, quint32 window);

    /// Asks at once. Calls `answered` once, unless the ping is destroyed before.
    X11WindowPing(X11Connection &connection, quint32 window, std::function<void()> answered);

private:
    void handle(const X11Event &event);

    X11Connection &m_connection;
    quint32 m_window;
    std::function<void()> m_answered;
    std::shared_ptr<void> m_rootEvents;
    std::shared_ptr<void> m_subscription;
};

/// Waits for the answer; a program that does not give it costs the whole time.
void awaitEventsHandled(X11Connection &connection, quint32 window, std::chrono::milliseconds limit);

}
