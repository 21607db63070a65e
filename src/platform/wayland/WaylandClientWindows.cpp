// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/wayland/WaylandClientWindows.h"

#include "platform/freedesktop/WindowNames.h"
#include "platform/wayland/ForeignToplevels.h"
#include "platform/wayland/PlasmaWindows.h"

#include <algorithm>

namespace Tessel {

namespace {

std::unique_ptr<WaylandWindows> listedWindows(WaylandConnection &connection)
{
    if (PlasmaWindows::isOffered(connection))
        return std::make_unique<PlasmaWindows>(connection);
    return std::make_unique<ForeignToplevels>(connection);
}

}

WaylandClientWindows::WaylandClientWindows(WaylandConnection &connection)
    : m_connection(connection)
    , m_windows(listedWindows(connection))
    , m_entries(DesktopEntries::standardFolders())
{
}

WaylandClientWindows::~WaylandClientWindows() = default;

/// A new window tells of itself when it is asked.
void WaylandClientWindows::refresh()
{
    m_connection.roundTrip();
    m_connection.roundTrip();
}

QList<ClientWindow> WaylandClientWindows::all()
{
    refresh();
    QList<ClientWindow> windows;
    for (const WaylandWindow &window : m_windows->all()) {
        FrontApplication application = applicationNamed(namesOf(window), m_entries);
        application.window = window.handle;
        windows.append({ application, window.processId, window.isMinimized });
    }
    return windows;
}

quint64 WaylandClientWindows::active()
{
    refresh();
    const auto window = m_windows->active();
    return window ? window->handle : 0;
}

FrontApplication WaylandClientWindows::front()
{
    const quint64 window = active();
    const QList<ClientWindow> windows = all();
    const auto found
        = std::find_if(windows.cbegin(), windows.cend(), [window](const ClientWindow &candidate) {
              return candidate.application.window == window;
          });
    return found == windows.cend() ? FrontApplication() : found->application;
}

/// They are on their way when the program ends right afterwards.
void WaylandClientWindows::activate(quint64 window)
{
    m_windows->activate(window);
    m_connection.roundTrip();
}

void WaylandClientWindows::close(quint64 window)
{
    m_windows->close(window);
    m_connection.roundTrip();
}

}
