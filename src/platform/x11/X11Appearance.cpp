// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/x11/X11Appearance.h"

#include "platform/x11/X11Connection.h"
#include "platform/x11/XSettings.h"

#include <xcb/xcb.h>
#include <xcb/xfixes.h>

namespace Tessel {

namespace {

QByteArray managerSelection(int screen)
{
    return "_XSETTINGS_S" + QByteArray::number(screen);
}

}

X11Appearance::X11Appearance(X11Connection &connection)
    : m_connection(connection)
    , m_selection(connection.atom(managerSelection(connection.screenNumber()).constData()))
    , m_settings(connection.atom("_XSETTINGS_SETTINGS"))
{
    if (!connection.xfixes().present)
        return;
    xcb_xfixes_select_selection_input(connection.xcb(), connection.root(), m_selection,
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER);
    m_subscription = connection.subscribe([this](const X11Event &event) { handle(event); });
    follow(connection.selectionOwner(m_selection));
}

void X11Appearance::handle(const X11Event &event)
{
    if (event.type() == XCB_PROPERTY_NOTIFY) {
        const auto &notify = event.as<xcb_property_notify_event_t>();
        if (notify.window == m_manager && notify.atom == m_settings)
            read();
    } else if (event.type() == m_connection.xfixes().firstEvent + XCB_XFIXES_SELECTION_NOTIFY) {
        const auto &notify = event.as<xcb_xfixes_selection_notify_event_t>();
        if (notify.selection == m_selection)
            follow(notify.owner);
    }
}

void X11Appearance::follow(quint32 manager)
{
    m_manager = manager;
    if (manager == XCB_NONE)
        return;
    const quint32 eventMask = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(m_connection.xcb(), manager, XCB_CW_EVENT_MASK, &eventMask);
    read();
}

void X11Appearance::read()
{
    setSystemLook(lookOfXSettings(parseXSettings(m_connection.property(m_manager, m_settings))));
}

}
