// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <chrono>

namespace Tessel {

class X11Connection;

/// Whether the window's program says that it answers awaitEventsHandled().
[[nodiscard]] bool answersPing(const X11Connection &connection, quint32 window);

/// Waits until the window's program has looked at all events that the server has sent it: asks it
/// for a sign of life (EWMH, _NET_WM_PING), which programs answer in the order of their events. One
/// that does not, or takes longer, costs the whole time.
void awaitEventsHandled(X11Connection &connection, quint32 window, std::chrono::milliseconds limit);

}
