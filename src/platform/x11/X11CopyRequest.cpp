// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/x11/X11CopyRequest.h"

#include "platform/Pasteboard.h"
#include "platform/Workspace.h"
#include "platform/freedesktop/Terminals.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/X11FakeKeys.h"
#include "platform/x11/X11SelectionReader.h"

#include <xcb/xcb.h>
// A member's name in this C header.
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit

using namespace std::chrono_literals;

namespace Tessel {

X11CopyRequest::X11CopyRequest(X11Connection &connection, X11SelectionReader &reader,
                               Pasteboard &pasteboard)
    : m_connection(connection)
    , m_reader(reader)
    , m_pasteboard(pasteboard)
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

void X11CopyRequest::handle(const X11Event &event)
{
    if (event.type() != m_connection.xkb().firstEvent)
        return;
    const auto &notify = event.as<xcb_xkb_state_notify_event_t>();
    const bool sameGroup = notify.xkbType == XCB_XKB_STATE_NOTIFY
        && !(notify.changed & XCB_XKB_STATE_PART_GROUP_STATE);
    if (!sameGroup)
        m_keys.reset();
}

void X11CopyRequest::prepare()
{
    if (!m_keys && m_connection.xkb().present)
        m_keys = x11CopyKeys(m_connection);
}

void X11CopyRequest::copySelection(const FrontApplication &application)
{
    if (!application.isTerminal)
        press(Chord::controlC);
    else if (ownsPrimary(static_cast<quint32>(application.window)))
        copyPrimary();
    else if (Terminals::copiesOnControlShiftC(application.bundleIdentifier.value_or(QString())))
        press(Chord::controlShiftC);
}

bool X11CopyRequest::ownsPrimary(quint32 window) const
{
    return m_connection.isSameClient(m_connection.selectionOwner(XCB_ATOM_PRIMARY), window);
}

void X11CopyRequest::copyPrimary()
{
    m_reader.read(XCB_ATOM_PRIMARY, 400ms).then(this, [this](const std::optional<QString> &text) {
        if (text && !text->isEmpty())
            m_pasteboard.setString(*text);
    });
}

void X11CopyRequest::press(Chord chord)
{
    prepare();
    if (!m_keys || !m_connection.xtest().present)
        return;
    X11FakeKeys keyboard(m_connection);
    keyboard.liftHeldModifiers();
    QList<quint8> keys { m_keys->control };
    if (chord == Chord::controlShiftC)
        keys.append(m_keys->shift);
    keys.append(m_keys->copy);
    keyboard.press(keys);
}

}
