// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/x11/X11StatusArea.h"

#include "platform/x11/X11Connection.h"

#include <xcb/xcb.h>
#include <xcb/xfixes.h>

namespace Tessel {

namespace {

QByteArray traySelection(int screen)
{
    return "_NET_SYSTEM_TRAY_S" + QByteArray::number(screen);
}

}

X11StatusArea::X11StatusArea(X11Connection &connection)
    : m_connection(connection)
    , m_traySelection(connection.atom(traySelection(connection.screenNumber()).constData()))
    , m_colors(connection.atom("_NET_SYSTEM_TRAY_COLORS"))
{
    if (!connection.xfixes().present)
        return;
    xcb_xfixes_select_selection_input(connection.xcb(), connection.root(), m_traySelection,
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER
                                          | XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY
                                          | XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    m_subscription = connection.subscribe([this](const X11Event &event) { handle(event); });
    follow(connection.selectionOwner(m_traySelection));
}

/// The first of four colours of three 16-bit parts each. Hosts of notifiers colour by themselves.
std::optional<quint32> X11StatusArea::itemColor() const
{
    if (!m_tray || NotifierArea::isAvailable())
        return {};
    const QList<quint32> parts = m_connection.items(m_tray, m_colors);
    if (parts.size() < 3)
        return {};
    quint32 color = 0;
    for (int i = 0; i < 3; ++i)
        color = color << 8 | (parts[i] >> 8 & 0xff);
    return color;
}

void X11StatusArea::handle(const X11Event &event)
{
    if (event.type() == XCB_PROPERTY_NOTIFY) {
        const auto &notify = event.as<xcb_property_notify_event_t>();
        if (notify.window == m_tray && notify.atom == m_colors)
            Q_EMIT itemColorChanged();
    } else if (event.type() == m_connection.xfixes().firstEvent + XCB_XFIXES_SELECTION_NOTIFY) {
        const auto &notify = event.as<xcb_xfixes_selection_notify_event_t>();
        if (notify.selection == m_traySelection)
            follow(notify.owner);
    }
}

void X11StatusArea::follow(quint32 tray)
{
    m_tray = tray;
    if (tray == XCB_NONE)
        return;
    const quint32 eventMask = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(m_connection.xcb(), tray, XCB_CW_EVENT_MASK, &eventMask);
    Q_EMIT becameAvailable();
}

}
