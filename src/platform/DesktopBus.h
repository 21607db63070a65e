// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

class QObject;

namespace Tessel {

/// The buses by which the desktop's programs talk, of the session and of the system. One that has
/// stopped, or is overloaded, makes whoever connects to it wait without a limit. Main thread only.
namespace DesktopBus {

/// Whether connecting takes no time: the buses answer, or there are none. Asks when it is first
/// called, and waits for a moment then.
[[nodiscard]] bool isReady();

/// Calls once they are ready, at once where they are; not after the context's end. Before that
/// nothing may use D-Bus, nor make Qt do so. Needs the application object.
void whenReady(QObject *context, const std::function<void()> &then);

}

}
