// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/x11/X11Manager.h"

#include "platform/x11/X11Connection.h"

#include <xcb/xcb.h>

namespace Tessel {

namespace {

quint32 selectionOfScreen(const X11Connection &connection, const char *selection)
{
    const QByteArray name = selection + QByteArray::number(connection.screenNumber());
    return connection.atom(name.constData());
}

}

X11Manager::X11Manager(X11Connection &connection, const char *selection, const char *property,
                       std::function<void(Change)> changed)
    : m_connection(connection)
    , m_changed(std::move(changed))
    , m_property(connection.atom(property))
    , m_watch(connection, selectionOfScreen(connection, selection),
              [this](quint32 owner, quint32) {
                  follow(owner);
                  m_changed(Change::manager);
              })
    , m_subscription(connection.subscribe([this](const X11Event &event) { handle(event); }))
{
    follow(connection.selectionOwner(selectionOfScreen(connection, selection)));
}

void X11Manager::handle(const X11Event &event)
{
    if (event.type() != XCB_PROPERTY_NOTIFY)
        return;
    const auto &notify = event.as<xcb_property_notify_event_t>();
    if (notify.window == m_window && notify.atom == m_property)
        m_changed(Change::property);
}

void X11Manager::follow(quint32 window)
{
    m_window = window;
    if (window == XCB_NONE)
        return;
    const quint32 eventMask = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(m_connection.xcb(), window, XCB_CW_EVENT_MASK, &eventMask);
}

}
