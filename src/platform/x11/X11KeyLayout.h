// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <optional>

class X11Connection;

/// Where a keyboard layout has the keys that a copy shortcut needs.
struct X11CopyKeys
{
    quint8 letterC = 0; ///< keycode
    quint8 control = 0;
    quint8 shift = 0;

    friend bool operator==(const X11CopyKeys &, const X11CopyKeys &) = default;
};

/// Asks the server for the layout in use. The key for "c" is the one that gives it in the active
/// group, else in another group, else the key at its place on an ANSI keyboard.
[[nodiscard]] std::optional<X11CopyKeys> x11CopyKeys(const X11Connection &connection);
