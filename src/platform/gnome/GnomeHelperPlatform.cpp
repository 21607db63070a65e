// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/gnome/GnomeHelperPlatform.h"

#include "platform/wayland/WaylandBell.h"
#include "platform/wayland/WaylandConnection.h"

namespace Tessel {

Result<std::unique_ptr<HelperPlatform>> GnomeHelperPlatform::connect()
{
    return std::unique_ptr<HelperPlatform>(std::make_unique<GnomeHelperPlatform>());
}

void GnomeHelperPlatform::ringBell()
{
    if (const auto connection = WaylandConnection::open())
        ringWaylandBell(**connection);
}

}
