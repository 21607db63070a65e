// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/x11/X11HelperPlatform.h"

#include <xcb/xcb.h>

namespace Tessel {

X11HelperPlatform::X11HelperPlatform(std::unique_ptr<X11Connection> connection)
    : m_connection(std::move(connection))
{
}

Result<std::unique_ptr<HelperPlatform>> X11HelperPlatform::connect()
{
    auto connection = X11Connection::open();
    if (!connection)
        return connection.error();
    return std::unique_ptr<HelperPlatform>(new X11HelperPlatform(*std::move(connection)));
}

void X11HelperPlatform::ringBell()
{
    xcb_bell(m_connection->xcb(), 0);
    xcb_flush(m_connection->xcb());
}

}
