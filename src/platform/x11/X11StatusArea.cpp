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
{
    if (!connection.xfixes().present)
        return;
    xcb_xfixes_select_selection_input(connection.xcb(), connection.root(), m_traySelection,
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER);
    m_subscription = connection.subscribe([this](const X11Event &event) { handle(event); });
}

bool X11StatusArea::hasTray() const
{
    return m_connection.selectionOwner(m_traySelection) != XCB_NONE;
}

void X11StatusArea::handle(const X11Event &event)
{
    if (event.type() != m_connection.xfixes().firstEvent + XCB_XFIXES_SELECTION_NOTIFY)
        return;
    const auto &notify = event.as<xcb_xfixes_selection_notify_event_t>();
    if (notify.selection == m_traySelection && notify.owner != XCB_NONE)
        Q_EMIT becameAvailable();
}

}
