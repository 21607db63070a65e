// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QString>

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

    /// What the key types in the active group with these modifiers (the core protocol's mask, locks
    /// included); empty when it types nothing.
    [[nodiscard]] QString text(quint8 key, quint8 modifiers) const;

    // The left modifier keys; where the layout has none, their places on an ANSI keyboard.
    [[nodiscard]] quint8 control() const;
    [[nodiscard]] quint8 shift() const;
    [[nodiscard]] quint8 alt() const;
    [[nodiscard]] quint8 insert() const; ///< the one beside Delete

    /// Keys that no group has symbols for.
    [[nodiscard]] QList<quint8> unusedKeys() const;

private:
    X11KeyLayout(std::shared_ptr<xkb_keymap> keymap, std::shared_ptr<xkb_state> state);
    [[nodiscard]] std::optional<quint8> keyInGroup(quint32 symbol, quint32 group) const;

    std::shared_ptr<xkb_keymap> m_keymap;
    std::shared_ptr<xkb_state> m_state;
};

}
