// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/gnome/GnomeSession.h"

#include "platform/freedesktop/QtPlugins.h"
#include "platform/wayland/WaylandConnection.h"

namespace Tessel {

/// Its windows have a protocol of GTK's, which no compositor of another family has.
bool GnomeSession::isOffered()
{
    if (qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") || !hasQtWaylandPlugin())
        return false;
    const auto connection = WaylandConnection::open();
    return connection && (*connection)->offers("gtk_shell1");
}

}
