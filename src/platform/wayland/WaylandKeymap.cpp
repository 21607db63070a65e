// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/wayland/WaylandKeymap.h"

#include <algorithm>
#include <cstdlib>
#include <xkbcommon/xkbcommon.h>

namespace Tessel {

namespace {

/// The keys that give two characters each in any layout, so that programs that go by a key's place
/// take them for typing keys.
constexpr const char *typingKeys[] = {
    "TLDE", "AE01", "AE02", "AE03", "AE04", "AE05", "AE06", "AE07", "AE08", "AE09", "AE10", "AE11",
    "AE12", "AD01", "AD02", "AD03", "AD04", "AD05", "AD06", "AD07", "AD08", "AD09", "AD10", "AD11",
    "AD12", "BKSL", "AC01", "AC02", "AC03", "AC04", "AC05", "AC06", "AC07", "AC08", "AC09", "AC10",
    "AC11", "AB01", "AB02", "AB03", "AB04", "AB05", "AB06", "AB07", "AB08", "AB09", "AB10",
};
constexpr xkb_keycode_t lastKey = 255; // X11 programs have no others
constexpr xkb_level_index_t levels = 2; // without and with Shift
static_assert(WaylandKeymap::maxFurther == std::size(typingKeys) * levels);

QByteArray nameOf(quint32 symbol)
{
    char name[64] = "NoSymbol";
    xkb_keysym_get_name(symbol, name, sizeof name);
    return name;
}

/// XKB text format.
QByteArray description(const QList<quint32> &further)
{
    QByteArray text = "xkb_keymap {\n"
                      "xkb_keycodes { include \"evdev+aliases(qwerty)\" };\n"
                      "xkb_types { include \"complete\" };\n"
                      "xkb_compat { include \"complete\" };\n"
                      "xkb_symbols { include \"pc+us+inet(evdev)\"\n";
    for (qsizetype index = 0; index < further.size(); index += levels)
        text += QByteArray("key <") + typingKeys[index / levels]
            + "> { type[Group2] = \"TWO_LEVEL\", symbols[Group2] = [ " + nameOf(further[index])
            + ", " + nameOf(further.value(index + 1)) + " ] };\n";
    return text + "}; };";
}

}

WaylandKeymap::WaylandKeymap(std::shared_ptr<xkb_keymap> keymap)
    : m_keymap(std::move(keymap))
{
}

std::optional<WaylandKeymap> WaylandKeymap::make(const QList<quint32> &further)
{
    return read(description(further));
}

std::optional<WaylandKeymap> WaylandKeymap::read(const QByteArray &description)
{
    const std::unique_ptr<xkb_context, decltype(&xkb_context_unref)> context(
        xkb_context_new(XKB_CONTEXT_NO_FLAGS), xkb_context_unref);
    if (!context)
        return {};
    const std::shared_ptr<xkb_keymap> keymap(
        xkb_keymap_new_from_string(context.get(), description.constData(),
                                   XKB_KEYMAP_FORMAT_TEXT_V1, XKB_KEYMAP_COMPILE_NO_FLAGS),
        xkb_keymap_unref);
    return keymap ? std::optional(WaylandKeymap(keymap)) : std::nullopt;
}

/// The first group, and the keys of the typing block, come first.
std::optional<WaylandKeymap::Stroke> WaylandKeymap::stroke(quint32 symbol) const
{
    xkb_keymap *keymap = m_keymap.get();
    const xkb_keycode_t last = std::min(xkb_keymap_max_keycode(keymap), lastKey);
    for (xkb_layout_index_t group = 0; group < xkb_keymap_num_layouts(keymap); ++group) {
        for (xkb_keycode_t key = xkb_keymap_min_keycode(keymap); key <= last; ++key) {
            if (group >= xkb_keymap_num_layouts_for_key(keymap, key))
                continue;
            for (xkb_level_index_t level = 0; level < levels; ++level) {
                const xkb_keysym_t *symbols = nullptr;
                if (xkb_keymap_key_get_syms_by_level(keymap, key, group, level, &symbols) == 1
                    && symbols[0] == symbol)
                    return Stroke { key, level == 1, group };
            }
        }
    }
    return {};
}

/// In a group that a key lacks, it has one of its others.
std::optional<WaylandKeymap::Stroke> WaylandKeymap::commonStroke(quint32 symbol,
                                                                 quint32 groups) const
{
    const auto found = stroke(symbol);
    if (!found)
        return {};
    xkb_keymap *keymap = m_keymap.get();
    const auto ofKey = xkb_keymap_num_layouts_for_key(keymap, found->scanCode);
    for (xkb_layout_index_t group = 0; group < std::min(groups, ofKey); ++group) {
        const xkb_keysym_t *symbols = nullptr;
        if (xkb_keymap_key_get_syms_by_level(keymap, found->scanCode, group, found->shift ? 1 : 0,
                                             &symbols)
                != 1
            || symbols[0] != symbol)
            return {};
    }
    return found;
}

quint32 WaylandKeymap::groups() const
{
    return xkb_keymap_num_layouts(m_keymap.get());
}

QByteArray WaylandKeymap::text() const
{
    const std::unique_ptr<char, decltype(&std::free)> text(
        xkb_keymap_get_as_string(m_keymap.get(), XKB_KEYMAP_FORMAT_TEXT_V1), std::free);
    return text.get();
}

}
