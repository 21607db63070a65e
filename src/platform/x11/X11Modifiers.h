// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QList>

namespace Tessel {

class X11Connection;

/// Between the modifier bits of the configuration (KeyCodes.h) and the core protocol's modifier
/// mask. By convention Mod1 is Alt and Mod4 is Super; Lock, NumLock and AltGr do not count.
namespace X11Modifiers {

[[nodiscard]] qint64 bits(quint8 mask);
[[nodiscard]] quint8 mask(qint64 bits);

/// A key (X keycode) for each modifier of the mask, as the server has them now.
[[nodiscard]] QList<quint8> keys(const X11Connection &connection, quint8 mask);

/// Those of all modifiers that are held down.
[[nodiscard]] QList<quint8> heldKeys(const X11Connection &connection);

}

}
