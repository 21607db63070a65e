// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/x11/X11KeyLayout.h"

#include "platform/x11/X11Connection.h"

#include <memory>
#include <xcb/xcb.h>
#include <xkbcommon/xkbcommon-keysyms.h>
#include <xkbcommon/xkbcommon-x11.h>

namespace {

constexpr xkb_keycode_t ansiControl = 37;
constexpr xkb_keycode_t ansiShift = 50;
constexpr xkb_keycode_t ansiInsert = 118;

using ContextPtr = std::unique_ptr<xkb_context, decltype(&xkb_context_unref)>;
using KeymapPtr = std::unique_ptr<xkb_keymap, decltype(&xkb_keymap_unref)>;
using StatePtr = std::unique_ptr<xkb_state, decltype(&xkb_state_unref)>;

/// The key that gives the symbol in this group without modifiers.
std::optional<xkb_keycode_t> keyFor(xkb_keymap *keymap, xkb_keysym_t symbol,
                                    xkb_layout_index_t group)
{
    const xkb_keycode_t last = xkb_keymap_max_keycode(keymap);
    for (xkb_keycode_t key = xkb_keymap_min_keycode(keymap); key <= last && key <= 255; ++key) {
        if (group >= xkb_keymap_num_layouts_for_key(keymap, key))
            continue;
        const xkb_keysym_t *symbols = nullptr;
        if (xkb_keymap_key_get_syms_by_level(keymap, key, group, 0, &symbols) == 1
            && *symbols == symbol)
            return key;
    }
    return {};
}

xkb_keycode_t copyKey(xkb_keymap *keymap, xkb_layout_index_t activeGroup)
{
    if (const auto key = keyFor(keymap, XKB_KEY_c, activeGroup))
        return *key;
    for (xkb_layout_index_t group = 0; group < xkb_keymap_num_layouts(keymap); ++group) {
        if (const auto key = keyFor(keymap, XKB_KEY_c, group))
            return *key;
    }
    return keyFor(keymap, XKB_KEY_Insert, 0).value_or(ansiInsert);
}

}

std::optional<X11CopyKeys> x11CopyKeys(const X11Connection &connection)
{
    const ContextPtr context(xkb_context_new(XKB_CONTEXT_NO_DEFAULT_INCLUDES), xkb_context_unref);
    const int32_t device = xkb_x11_get_core_keyboard_device_id(connection.xcb());
    if (!context || device < 0)
        return {};
    const KeymapPtr keymap(xkb_x11_keymap_new_from_device(context.get(), connection.xcb(), device,
                                                          XKB_KEYMAP_COMPILE_NO_FLAGS),
                           xkb_keymap_unref);
    if (!keymap)
        return {};
    const StatePtr state(xkb_x11_state_new_from_device(keymap.get(), connection.xcb(), device),
                         xkb_state_unref);
    if (!state)
        return {};
    const auto group = xkb_state_serialize_layout(state.get(), XKB_STATE_LAYOUT_EFFECTIVE);
    const auto modifier = [&](xkb_keysym_t symbol, xkb_keycode_t otherwise) {
        return static_cast<quint8>(keyFor(keymap.get(), symbol, 0).value_or(otherwise));
    };
    return X11CopyKeys { static_cast<quint8>(copyKey(keymap.get(), group)),
                         modifier(XKB_KEY_Control_L, ansiControl),
                         modifier(XKB_KEY_Shift_L, ansiShift) };
}
