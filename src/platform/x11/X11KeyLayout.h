// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <optional>

class X11Connection;

/// The keys of the copy shortcut in a keyboard layout, as X keycodes.
struct X11CopyKeys
{
    quint8 copy = 0; ///< together with Control
    quint8 control = 0;
    quint8 shift = 0;

    friend bool operator==(const X11CopyKeys &, const X11CopyKeys &) = default;
};

/// Asks the server for the layout in use. The key is the one that gives "c" in the active group,
/// else in another group; a layout without Latin letters has Insert, since toolkits that look for
/// the letter do not find it at its place on the keyboard (tried with GTK 3 and Qt 5).
[[nodiscard]] std::optional<X11CopyKeys> x11CopyKeys(const X11Connection &connection);
