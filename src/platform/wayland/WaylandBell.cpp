// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/wayland/WaylandBell.h"

#include "platform/wayland/WaylandConnection.h"

#include <xdg-system-bell-client.h>

namespace Tessel {

void ringWaylandBell(WaylandConnection &connection)
{
    const WaylandPtr<xdg_system_bell_v1> bell(
        connection.bind<xdg_system_bell_v1>(xdg_system_bell_v1_interface, 1),
        xdg_system_bell_v1_destroy);
    if (bell)
        xdg_system_bell_v1_ring(bell.get(), nullptr);
    connection.flush();
}

}
