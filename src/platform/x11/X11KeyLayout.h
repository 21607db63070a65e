// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QList>

#include <memory>
#include <optional>

struct xkb_keymap;
struct xkb_state;

namespace Tessel {

class X11Connection;

/// The keyboard layout in use and the state of its locks, as they were when the server was asked.
/// Symbols are X keysyms, keys X keycodes.
class X11KeyLayout final
{
public:
    /// A key together with the only modifier that typing text presses.
    struct Stroke
    {
        quint8 key = 0;
        bool shift = false;

        friend bool operator==(const Stroke &, const Stroke &) = default;
    };

    /// Nothing when the server has no XKB keyboard.
    [[nodiscard]] static std::optional<X11KeyLayout> read(const X11Connection &connection);

    /// What gives the symbol as things are: active group, Caps Lock, Num Lock.
    [[nodiscard]] std::optional<Stroke> stroke(quint32 symbol) const;

    /// The key that gives the symbol without modifiers in the active group, else in another group.
    [[nodiscard]] std::optional<quint8> key(quint32 symbol) const;

    // The left modifier keys; where the layout has none, their places on an ANSI keyboard.
    [[nodiscard]] quint8 control() const;
    [[nodiscard]] quint8 shift() const;
    [[nodiscard]] quint8 alt() const;

    /// Keys that no group has symbols for.
    [[nodiscard]] QList<quint8> unusedKeys() const;

private:
    X11KeyLayout(std::shared_ptr<xkb_keymap> keymap, std::shared_ptr<xkb_state> state);
    [[nodiscard]] std::optional<quint8> keyInGroup(quint32 symbol, quint32 group) const;

    std::shared_ptr<xkb_keymap> m_keymap;
    std::shared_ptr<xkb_state> m_state;
};

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

}
