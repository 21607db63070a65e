// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/x11/X11Modifiers.h"

#include "base/KeyCodes.h"
#include "platform/x11/X11Connection.h"

#include <algorithm>
#include <xcb/xcb.h>

namespace Tessel {

namespace {

struct Pair
{
    qint64 bit;
    quint8 mask;
};

constexpr Pair pairs[] = {
    { KeyCodes::shift, XCB_MOD_MASK_SHIFT },
    { KeyCodes::control, XCB_MOD_MASK_CONTROL },
    { KeyCodes::option, XCB_MOD_MASK_1 },
    { KeyCodes::command, XCB_MOD_MASK_4 },
};

constexpr int modifierCount = 8;

/// The keys of each modifier, in the order of the mask's bits.
QList<QList<quint8>> keysByModifier(const xcb_get_modifier_mapping_reply_t &mapping)
{
    QList<QList<quint8>> keys(modifierCount);
    const xcb_keycode_t *key = xcb_get_modifier_mapping_keycodes(&mapping);
    for (QList<quint8> &ofModifier : keys) {
        for (int i = 0; i < mapping.keycodes_per_modifier; ++i, ++key) {
            if (*key != 0)
                ofModifier += *key;
        }
    }
    return keys;
}

}

qint64 X11Modifiers::bits(quint8 mask)
{
    qint64 bits = 0;
    for (const Pair &pair : pairs)
        bits |= mask & pair.mask ? pair.bit : 0;
    return bits;
}

quint8 X11Modifiers::mask(qint64 bits)
{
    quint8 mask = 0;
    for (const Pair &pair : pairs)
        mask |= bits & pair.bit ? pair.mask : 0;
    return mask;
}

QList<quint8> X11Modifiers::keys(const X11Connection &connection, quint8 mask)
{
    xcb_connection_t *xcb = connection.xcb();
    const XcbPtr<xcb_get_modifier_mapping_reply_t> mapping(
        xcb_get_modifier_mapping_reply(xcb, xcb_get_modifier_mapping(xcb), nullptr));
    QList<quint8> keys;
    if (!mapping)
        return keys;
    const auto all = keysByModifier(*mapping);
    for (int i = 0; i < modifierCount; ++i) {
        if ((mask & (1 << i)) && !all.at(i).isEmpty())
            keys += all.at(i).first();
    }
    return keys;
}

QList<quint8> X11Modifiers::heldKeys(const X11Connection &connection)
{
    xcb_connection_t *xcb = connection.xcb();
    const auto heldCookie = xcb_query_keymap(xcb);
    const auto mappingCookie = xcb_get_modifier_mapping(xcb);
    const XcbPtr<xcb_query_keymap_reply_t> held(xcb_query_keymap_reply(xcb, heldCookie, nullptr));
    const XcbPtr<xcb_get_modifier_mapping_reply_t> mapping(
        xcb_get_modifier_mapping_reply(xcb, mappingCookie, nullptr));
    QList<quint8> keys;
    if (!held || !mapping)
        return keys;
    for (const QList<quint8> &ofModifier : keysByModifier(*mapping)) {
        for (const quint8 key : ofModifier) {
            if (held->keys[key / 8] & (1 << (key % 8)))
                keys += key;
        }
    }
    return keys;
}

}
