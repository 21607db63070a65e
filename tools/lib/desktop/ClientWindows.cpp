// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "lib/desktop/ClientWindows.h"

#include "lib/desktop/Waiting.h"
#include "platform/x11/X11Connection.h"

#include <algorithm>
#include <cstring>
#include <xcb/xcb.h>

using namespace std::chrono_literals;

namespace Tessel {

namespace {

constexpr quint32 taskBar = 2; ///< source indication
constexpr auto patience = 1s;

}

QList<quint32> ClientWindows::items(quint32 window, const char *property) const
{
    const QByteArray bytes = m_connection.property(window, m_connection.atom(property));
    QList<quint32> items(bytes.size() / 4);
    std::memcpy(items.data(), bytes.constData(), static_cast<std::size_t>(items.size()) * 4);
    return items;
}

QList<quint32> ClientWindows::all() const
{
    QList<quint32> windows = items(m_connection.root(), "_NET_CLIENT_LIST_STACKING");
    std::reverse(windows.begin(), windows.end());
    return windows;
}

quint32 ClientWindows::active() const
{
    return items(m_connection.root(), "_NET_ACTIVE_WINDOW").value(0);
}

qint64 ClientWindows::processId(quint32 window) const
{
    return items(window, "_NET_WM_PID").value(0);
}

bool ClientWindows::isHidden(quint32 window) const
{
    return items(window, "_NET_WM_STATE").contains(m_connection.atom("_NET_WM_STATE_HIDDEN"));
}

void ClientWindows::activate(quint32 window)
{
    request(window, "_NET_ACTIVE_WINDOW", taskBar, XCB_CURRENT_TIME);
    waitUntil([this, window] { return active() == window; }, patience);
}

void ClientWindows::close(quint32 window)
{
    request(window, "_NET_CLOSE_WINDOW", XCB_CURRENT_TIME, taskBar);
}

void ClientWindows::request(quint32 window, const char *message, quint32 first, quint32 second)
{
    xcb_client_message_event_t event = {};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = m_connection.atom(message);
    event.data.data32[0] = first;
    event.data.data32[1] = second;
    xcb_send_event(m_connection.xcb(), 0, m_connection.root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char *>(&event));
    xcb_flush(m_connection.xcb());
}

}
