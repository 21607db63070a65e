// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/x11/X11CurrentLayout.h"

#include "platform/x11/X11Connection.h"

#include <xcb/xcb.h>
// A member's name in this C header.
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit

namespace Tessel {

X11CurrentLayout::X11CurrentLayout(X11Connection &connection)
    : m_connection(connection)
{
    if (!connection.xkb().present)
        return;
    xcb_xkb_select_events_details_t details = {};
    details.affectNewKeyboard = details.newKeyboardDetails = XCB_XKB_NKN_DETAIL_KEYCODES;
    details.affectState = details.stateDetails = XCB_XKB_STATE_PART_GROUP_STATE;
    constexpr quint16 wholeMap = XCB_XKB_EVENT_TYPE_MAP_NOTIFY;
    constexpr quint16 allParts = XCB_XKB_MAP_PART_KEY_SYMS | XCB_XKB_MAP_PART_MODIFIER_MAP;
    xcb_xkb_select_events_aux(connection.xcb(), XCB_XKB_ID_USE_CORE_KBD,
                              XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY
                                  | XCB_XKB_EVENT_TYPE_STATE_NOTIFY | wholeMap,
                              0, wholeMap, allParts, allParts, &details);
    m_subscription = connection.subscribe([this](const X11Event &event) { handle(event); });
}

void X11CurrentLayout::handle(const X11Event &event)
{
    if (event.type() != m_connection.xkb().firstEvent)
        return;
    const auto &notify = event.as<xcb_xkb_state_notify_event_t>();
    if (notify.xkbType == XCB_XKB_NEW_KEYBOARD_NOTIFY)
        m_isSuspect = true;
    else if (notify.xkbType != XCB_XKB_STATE_NOTIFY
             || (notify.changed & XCB_XKB_STATE_PART_GROUP_STATE))
        m_layout.reset();
}

/// What setxkbmap(1) and desktops make the layout of, such as "pc+de+inet(evdev)"; an atom.
quint32 X11CurrentLayout::symbolsName() const
{
    xcb_connection_t *xcb = m_connection.xcb();
    const XcbPtr<xcb_xkb_get_names_reply_t> names(xcb_xkb_get_names_reply(
        xcb, xcb_xkb_get_names(xcb, XCB_XKB_ID_USE_CORE_KBD, XCB_XKB_NAME_DETAIL_SYMBOLS),
        nullptr));
    if (!names || !(names->which & XCB_XKB_NAME_DETAIL_SYMBOLS))
        return XCB_ATOM_NONE;
    xcb_xkb_get_names_value_list_t values = {};
    xcb_xkb_get_names_value_list_unpack(xcb_xkb_get_names_value_list(names.get()), names->nTypes,
                                        names->indicators, names->virtualMods, names->groupNames,
                                        names->nKeys, names->nKeyAliases, names->nRadioGroups,
                                        names->which, &values);
    return values.symbolsName;
}

const X11KeyLayout *X11CurrentLayout::get()
{
    if (std::exchange(m_isSuspect, false)) {
        const quint32 name = symbolsName();
        if (std::exchange(m_symbolsName, name) != name || name == XCB_ATOM_NONE)
            m_layout.reset();
    }
    if (!m_layout) {
        m_layout = X11KeyLayout::read(m_connection);
        ++m_revision;
    }
    return m_layout ? &*m_layout : nullptr;
}

}
