// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>

namespace Tessel {

class X11Connection;

/// Whether a program that has the keyboard, which is not ours, covers this screen (device pixels of
/// the root window) with a window that no window manager knows: X has no other sign of screen
/// lockers.
[[nodiscard]] bool isCoveredByLocker(const X11Connection &connection, const QRect &screen);

}
