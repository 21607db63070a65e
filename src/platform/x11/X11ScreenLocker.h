// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QRect>

namespace Tessel {

class X11Connection;

/// Whether a program that has the keyboard, which is not ours, covers one of the screens (device
/// pixels of the root window) with a window that no window manager knows: X has no other sign of
/// screen lockers.
[[nodiscard]] bool isCoveredByLocker(const X11Connection &connection, const QList<QRect> &screens);

}
