// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/KeyCodes.h"
#include "base/ShortcutModifiers.h"

#include <QFuture>

namespace Tessel {

/// Bits of KeyCodes.h.
[[nodiscard]] constexpr qint64 bitsOf(const ShortcutModifiers &modifiers)
{
    return (modifiers.command || modifiers.control ? KeyCodes::control : 0)
        | (modifiers.option ? KeyCodes::option : 0) | (modifiers.shift ? KeyCodes::shift : 0);
}

/// A keyboard that the program presses keys on; they go to the window in front.
class WaylandKeys
{
public:
    virtual ~WaylandKeys() = default;

    /// Does what the first press needs, so that it is quick.
    virtual void prepare() { }

    /// Finishes when modifiers that the user holds do not matter: at once where the keyboard has
    /// modifiers of its own, else when they are up, or after a second.
    [[nodiscard]] virtual QFuture<void> whenReady() = 0;

    /// Presses and releases a key, by its native scan code (KeyCodes.h), while the modifiers
    /// (bits of KeyCodes.h) are held.
    virtual void press(quint32 scanCode, qint64 modifiers) = 0;
};

}
