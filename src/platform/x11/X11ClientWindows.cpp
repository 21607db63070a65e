// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/x11/X11ClientWindows.h"

#include "platform/x11/X11Connection.h"
#include "platform/x11/X11Workspace.h"

namespace Tessel {

X11ClientWindows::X11ClientWindows(X11Connection &connection, X11Workspace &workspace)
    : m_connection(connection)
    , m_windowManager(connection)
    , m_workspace(workspace)
{
}

QList<ClientWindow> X11ClientWindows::all()
{
    QList<ClientWindow> windows;
    for (const quint32 window : m_windowManager.windows())
        windows.append({ m_workspace.applicationOf(window),
                         m_connection.items(window, "_NET_WM_PID").value(0),
                         m_windowManager.isHidden(window) });
    return windows;
}

quint64 X11ClientWindows::active()
{
    return m_windowManager.activeWindow();
}

void X11ClientWindows::activate(quint64 window)
{
    m_windowManager.activate(static_cast<quint32>(window));
}

void X11ClientWindows::close(quint64 window)
{
    m_windowManager.close(static_cast<quint32>(window));
}

}
