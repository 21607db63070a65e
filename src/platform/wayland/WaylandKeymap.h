// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>

#include <memory>
#include <optional>

struct xkb_keymap;

namespace Tessel {

/// The layout of a keyboard of our own: a US one, and in a second group, on its typing keys,
/// symbols that a US keyboard lacks. Symbols are X keysyms.
class WaylandKeymap final
{
public:
    struct Stroke
    {
        quint32 scanCode = 0; ///< native, as in KeyCodes.h
        bool shift = false;
        quint32 group = 0; ///< the second one: 1
    };

    static constexpr qsizetype maxFurther = 94;

    /// With at most maxFurther symbols in the second group. Nothing where the descriptions of
    /// keyboards (xkb-data) are missing.
    [[nodiscard]] static std::optional<WaylandKeymap> make(const QList<quint32> &further = {});

    /// In XKB text format.
    [[nodiscard]] static std::optional<WaylandKeymap> read(const QByteArray &description);

    [[nodiscard]] std::optional<Stroke> stroke(quint32 symbol) const;

    /// One that gives the symbol in each of the first `groups`.
    [[nodiscard]] std::optional<Stroke> commonStroke(quint32 symbol, quint32 groups) const;

    [[nodiscard]] quint32 groups() const;

    [[nodiscard]] QByteArray text() const; ///< XKB text format, version 1

private:
    explicit WaylandKeymap(std::shared_ptr<xkb_keymap> keymap);

    std::shared_ptr<xkb_keymap> m_keymap;
};

}
