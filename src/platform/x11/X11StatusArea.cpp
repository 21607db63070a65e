// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/x11/X11StatusArea.h"

#include "platform/x11/X11Connection.h"

namespace Tessel {

X11StatusArea::X11StatusArea(X11Connection &connection)
    : m_connection(connection)
    , m_tray(connection, "_NET_SYSTEM_TRAY_S", "_NET_SYSTEM_TRAY_COLORS",
             [this](X11Manager::Change change) {
                 if (change == X11Manager::Change::property)
                     Q_EMIT itemColorChanged();
                 else if (m_tray.window())
                     ask();
             })
{
}

/// The first of four colours of three 16-bit parts each. Hosts of notifiers colour by themselves.
std::optional<quint32> X11StatusArea::itemColor() const
{
    if (!m_tray.window() || hasHost())
        return {};
    const QList<quint32> parts = m_connection.items(m_tray.window(), m_tray.property());
    if (parts.size() < 3)
        return {};
    quint32 color = 0;
    for (int i = 0; i < 3; ++i)
        color = color << 8 | (parts[i] >> 8 & 0xff);
    return color;
}

}
