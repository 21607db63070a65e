// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/x11/X11FakeKeys.h"

#include "platform/x11/X11Connection.h"

#include <algorithm>
#include <xcb/xcb.h>
#include <xcb/xtest.h>

namespace Tessel {

void X11FakeKeys::liftHeldModifiers()
{
    xcb_connection_t *xcb = m_connection.xcb();
    const auto heldCookie = xcb_query_keymap(xcb);
    const auto mappingCookie = xcb_get_modifier_mapping(xcb);
    const XcbPtr<xcb_query_keymap_reply_t> held(xcb_query_keymap_reply(xcb, heldCookie, nullptr));
    const XcbPtr<xcb_get_modifier_mapping_reply_t> mapping(
        xcb_get_modifier_mapping_reply(xcb, mappingCookie, nullptr));
    if (!held || !mapping)
        return;
    const xcb_keycode_t *keycodes = xcb_get_modifier_mapping_keycodes(mapping.get());
    for (int i = 0; i < xcb_get_modifier_mapping_keycodes_length(mapping.get()); ++i) {
        const xcb_keycode_t key = keycodes[i];
        if (key != 0 && (held->keys[key / 8] & (1 << (key % 8))))
            send(XCB_KEY_RELEASE, key);
    }
}

void X11FakeKeys::press(const QList<quint8> &keys)
{
    for (const quint8 key : keys)
        send(XCB_KEY_PRESS, key);
    std::for_each(keys.crbegin(), keys.crend(), [this](quint8 key) { send(XCB_KEY_RELEASE, key); });
    xcb_flush(m_connection.xcb());
}

void X11FakeKeys::send(quint8 type, quint8 key)
{
    xcb_test_fake_input(m_connection.xcb(), type, key, XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
}

}
