// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/wayland/WaylandClientWindows.h"

#include "platform/freedesktop/WindowNames.h"

namespace Tessel {

WaylandClientWindows::WaylandClientWindows(WaylandConnection &connection)
    : m_connection(connection)
    , m_windows(connection)
    , m_entries(DesktopEntries::standardFolders())
{
}

QList<ClientWindow> WaylandClientWindows::all()
{
    m_connection.roundTrip();
    QList<ClientWindow> windows;
    for (const WaylandWindow &window : m_windows.all()) {
        FrontApplication application = applicationNamed(namesOf(window), m_entries);
        application.window = window.handle;
        windows.append({ application, window.processId, window.isMinimized });
    }
    return windows;
}

quint64 WaylandClientWindows::active()
{
    m_connection.roundTrip();
    const auto window = m_windows.active();
    return window ? window->handle : 0;
}

/// They are on their way when the program ends right afterwards.
void WaylandClientWindows::activate(quint64 window)
{
    m_windows.activate(window);
    m_connection.roundTrip();
}

void WaylandClientWindows::close(quint64 window)
{
    m_windows.close(window);
    m_connection.roundTrip();
}

}
