// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/wayland/WaylandHelperPlatform.h"

#include "platform/freedesktop/QtPlugins.h"
#include "platform/wayland/WaylandBell.h"

namespace Tessel {

bool WaylandHelperPlatform::isOffered()
{
    if (qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        return false;
    const auto connection = WaylandConnection::open();
    return connection && WaylandDataControl::isOffered(**connection);
}

Result<std::unique_ptr<HelperPlatform>> WaylandHelperPlatform::connect()
{
    auto connection = WaylandConnection::open();
    if (!connection)
        return connection.error();
    return std::unique_ptr<HelperPlatform>(new WaylandHelperPlatform(*std::move(connection)));
}

WaylandHelperPlatform::WaylandHelperPlatform(std::unique_ptr<WaylandConnection> connection)
    : m_connection(std::move(connection))
{
}

TextClipboard &WaylandHelperPlatform::clipboard()
{
    return m_clipboard ? *m_clipboard : m_clipboard.emplace(*m_connection);
}

ClientWindows &WaylandHelperPlatform::clientWindows()
{
    return m_clientWindows ? *m_clientWindows : m_clientWindows.emplace(*m_connection);
}

void WaylandHelperPlatform::ringBell()
{
    ringWaylandBell(*m_connection);
}

QByteArray WaylandHelperPlatform::qtPlugin() const
{
    return hasQtWaylandPlugin() ? "wayland" : "xcb"; // for which there is XWayland
}

}
