// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/x11/X11Appearance.h"

#include "platform/x11/X11Connection.h"
#include "platform/x11/XSettings.h"

namespace Tessel {

X11Appearance::X11Appearance(X11Connection &connection)
    : m_connection(connection)
    , m_manager(connection, "_XSETTINGS_S", "_XSETTINGS_SETTINGS",
                [this](X11Manager::Change) { read(); })
{
    read();
}

void X11Appearance::read()
{
    if (m_manager.window())
        setSystemLook(lookOfXSettings(
            parseXSettings(m_connection.property(m_manager.window(), m_manager.property()))));
}

}
