// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/x11/X11KeyLayout.h"

#include "platform/x11/X11Connection.h"

#include <algorithm>
#include <xcb/xcb.h>
#include <xkbcommon/xkbcommon-keysyms.h>
#include <xkbcommon/xkbcommon-x11.h>

namespace Tessel {

namespace {

constexpr quint8 ansiControl = 37;
constexpr quint8 ansiShift = 50;
constexpr quint8 ansiAlt = 64;
constexpr quint8 ansiInsert = 118;
constexpr xkb_keycode_t lastKey = 255;

using ContextPtr = std::unique_ptr<xkb_context, decltype(&xkb_context_unref)>;
using StatePtr = std::unique_ptr<xkb_state, decltype(&xkb_state_unref)>;

QList<quint8> keysOf(xkb_keymap *keymap)
{
    QList<quint8> keys;
    const xkb_keycode_t last = std::min(xkb_keymap_max_keycode(keymap), lastKey);
    for (xkb_keycode_t key = xkb_keymap_min_keycode(keymap); key <= last; ++key)
        keys += static_cast<quint8>(key);
    return keys;
}

bool hasSymbol(xkb_keymap *keymap, xkb_keycode_t key)
{
    for (xkb_layout_index_t group = 0; group < xkb_keymap_num_layouts_for_key(keymap, key);
         ++group) {
        for (xkb_level_index_t level = 0; level < xkb_keymap_num_levels_for_key(keymap, key, group);
             ++level) {
            const xkb_keysym_t *symbols = nullptr;
            if (xkb_keymap_key_get_syms_by_level(keymap, key, group, level, &symbols) > 0)
                return true;
        }
    }
    return false;
}

}

X11KeyLayout::X11KeyLayout(std::shared_ptr<xkb_keymap> keymap, std::shared_ptr<xkb_state> state)
    : m_keymap(std::move(keymap))
    , m_state(std::move(state))
{
}

std::optional<X11KeyLayout> X11KeyLayout::read(const X11Connection &connection)
{
    if (!connection.xkb().present)
        return {};
    const ContextPtr context(xkb_context_new(XKB_CONTEXT_NO_DEFAULT_INCLUDES), xkb_context_unref);
    const int32_t device = xkb_x11_get_core_keyboard_device_id(connection.xcb());
    if (!context || device < 0)
        return {};
    const std::shared_ptr<xkb_keymap> keymap(
        xkb_x11_keymap_new_from_device(context.get(), connection.xcb(), device,
                                       XKB_KEYMAP_COMPILE_NO_FLAGS),
        xkb_keymap_unref);
    if (!keymap)
        return {};
    const std::shared_ptr<xkb_state> state(
        xkb_x11_state_new_from_device(keymap.get(), connection.xcb(), device), xkb_state_unref);
    if (!state)
        return {};
    return X11KeyLayout(keymap, state);
}

std::optional<X11KeyLayout::Stroke> X11KeyLayout::stroke(quint32 symbol) const
{
    const StatePtr probe(xkb_state_new(m_keymap.get()), xkb_state_unref);
    const auto shift = xkb_keymap_mod_get_index(m_keymap.get(), XKB_MOD_NAME_SHIFT);
    for (const bool withShift : { false, true }) {
        xkb_state_update_mask(
            probe.get(), withShift ? 1U << shift : 0, 0,
            xkb_state_serialize_mods(m_state.get(), XKB_STATE_MODS_LOCKED), 0, 0,
            xkb_state_serialize_layout(m_state.get(), XKB_STATE_LAYOUT_EFFECTIVE));
        for (const quint8 key : keysOf(m_keymap.get())) {
            if (xkb_state_key_get_one_sym(probe.get(), key) == symbol)
                return Stroke { key, withShift };
        }
    }
    return {};
}

std::optional<quint8> X11KeyLayout::key(quint32 symbol) const
{
    const auto active = xkb_state_serialize_layout(m_state.get(), XKB_STATE_LAYOUT_EFFECTIVE);
    if (const auto found = keyInGroup(symbol, active))
        return found;
    for (xkb_layout_index_t group = 0; group < xkb_keymap_num_layouts(m_keymap.get()); ++group) {
        if (const auto found = keyInGroup(symbol, group))
            return found;
    }
    return {};
}

std::optional<quint8> X11KeyLayout::keyInGroup(quint32 symbol, quint32 group) const
{
    for (const quint8 key : keysOf(m_keymap.get())) {
        if (group >= xkb_keymap_num_layouts_for_key(m_keymap.get(), key))
            continue;
        const xkb_keysym_t *symbols = nullptr;
        if (xkb_keymap_key_get_syms_by_level(m_keymap.get(), key, group, 0, &symbols) == 1
            && *symbols == symbol)
            return key;
    }
    return {};
}

quint8 X11KeyLayout::control() const
{
    return key(XKB_KEY_Control_L).value_or(ansiControl);
}

quint8 X11KeyLayout::shift() const
{
    return key(XKB_KEY_Shift_L).value_or(ansiShift);
}

quint8 X11KeyLayout::alt() const
{
    return key(XKB_KEY_Alt_L).value_or(ansiAlt);
}

quint8 X11KeyLayout::insert() const
{
    return key(XKB_KEY_Insert).value_or(ansiInsert);
}

QString X11KeyLayout::text(quint8 key, quint8 modifiers) const
{
    const StatePtr probe(xkb_state_new(m_keymap.get()), xkb_state_unref);
    xkb_state_update_mask(probe.get(), modifiers, 0, 0, 0, 0,
                          xkb_state_serialize_layout(m_state.get(), XKB_STATE_LAYOUT_EFFECTIVE));
    char bytes[64];
    const int length = xkb_state_key_get_utf8(probe.get(), key, bytes, sizeof bytes);
    return QString::fromUtf8(bytes, std::min(length, int(sizeof bytes) - 1));
}

QList<quint8> X11KeyLayout::unusedKeys() const
{
    QList<quint8> keys = keysOf(m_keymap.get());
    keys.removeIf([this](quint8 key) { return hasSymbol(m_keymap.get(), key); });
    return keys;
}

}
