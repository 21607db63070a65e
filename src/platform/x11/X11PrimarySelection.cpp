// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/x11/X11PrimarySelection.h"

#include "platform/freedesktop/ProcessTree.h"
#include "platform/x11/X11ClientProcess.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/X11WindowManager.h"

#include <xcb/xcb.h>

namespace Tessel {

X11PrimarySelection::X11PrimarySelection(X11Connection &connection)
    : m_connection(connection)
    , m_watch(connection, XCB_ATOM_PRIMARY,
              [this](quint32 owner, quint32 time) {
                  if (owner)
                      m_takenAt = time;
              })
    , m_rootEvents(connection.listenToRoot(XCB_EVENT_MASK_PROPERTY_CHANGE))
    , m_subscription(connection.subscribe([this](const X11Event &event) { handle(event); }))
{
}

void X11PrimarySelection::handle(const X11Event &event)
{
    if (event.type() != XCB_PROPERTY_NOTIFY)
        return;
    const auto &notify = event.as<xcb_property_notify_event_t>();
    if (notify.window != m_connection.root()
        || notify.atom != m_connection.atom("_NET_ACTIVE_WINDOW"))
        return;
    // Window managers write it again, or take it away for a moment, when a key is grabbed.
    const quint32 active = X11WindowManager(m_connection).activeWindow();
    if (active && std::exchange(m_activeWindow, active) != active)
        m_activeSince = notify.time;
}

bool X11PrimarySelection::isNewerThanFocus() const
{
    if (!m_takenAt || !m_activeSince)
        return m_takenAt.has_value();
    return static_cast<qint32>(*m_takenAt - *m_activeSince) >= 0; // the server's time wraps around
}

bool X11PrimarySelection::isMarkedIn(quint32 window) const
{
    const quint32 owner = m_connection.selectionOwner(XCB_ATOM_PRIMARY);
    if (!window)
        return m_connection.isSameClient(
            owner, m_connection.items(m_connection.root(), "_NET_SUPPORTING_WM_CHECK").value(0));
    if (m_connection.isSameClient(owner, window))
        return true;
    switch (
        kinship(x11ClientProcess(m_connection, owner), x11ClientProcess(m_connection, window))) {
    case Kinship::same:
        return true;
    case Kinship::relative:
        return isNewerThanFocus();
    case Kinship::none:
        break;
    }
    return false;
}

}
