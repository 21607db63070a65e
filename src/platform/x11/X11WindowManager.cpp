// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/x11/X11WindowManager.h"

#include "platform/x11/X11Connection.h"

#include <algorithm>
#include <xcb/xcb.h>

namespace Tessel {

namespace {

/// Source indication: the user has asked for it, not the application itself.
constexpr quint32 fromPager = 2;

}

QList<quint32> X11WindowManager::windows() const
{
    QList<quint32> windows = m_connection.items(m_connection.root(), "_NET_CLIENT_LIST_STACKING");
    std::reverse(windows.begin(), windows.end());
    return windows;
}

quint32 X11WindowManager::activeWindow() const
{
    return m_connection.items(m_connection.root(), "_NET_ACTIVE_WINDOW").value(0);
}

bool X11WindowManager::isHidden(quint32 window) const
{
    return m_connection.items(window, "_NET_WM_STATE")
        .contains(m_connection.atom("_NET_WM_STATE_HIDDEN"));
}

void X11WindowManager::activate(quint32 window)
{
    request(window, "_NET_ACTIVE_WINDOW", { fromPager, XCB_CURRENT_TIME });
}

void X11WindowManager::close(quint32 window)
{
    request(window, "_NET_CLOSE_WINDOW", { XCB_CURRENT_TIME, fromPager });
}

void X11WindowManager::moveToCurrentDesktop(quint32 window)
{
    const quint32 current // 0 where there is one
        = m_connection.items(m_connection.root(), "_NET_CURRENT_DESKTOP").value(0);
    request(window, "_NET_WM_DESKTOP", { current, fromPager });
}

void X11WindowManager::request(quint32 window, const char *message,
                               const std::array<quint32, 5> &data)
{
    m_connection.sendMessage(m_connection.root(),
                             XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY
                                 | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                             window, message, data);
}

}
