// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/gnome/GnomeClientWindows.h"

#include "platform/freedesktop/WindowNames.h"
#include "platform/gnome/ShellCalls.h"
#include "platform/gnome/ShellInterface.h"

namespace Tessel {

QList<ClientWindow> GnomeClientWindows::all()
{
    QList<ClientWindow> windows;
    const auto reply = ShellCalls::call("Windows");
    for (const WaylandWindow &window :
         ShellInterface::windowsOf(reply.value_or(QVariantList()).value(0))) {
        FrontApplication application = applicationNamed(namesOf(window), m_entries);
        application.window = window.handle;
        windows.append({ application, window.processId, window.isMinimized });
    }
    return windows;
}

quint64 GnomeClientWindows::active()
{
    return front().window;
}

/// The window that was used last is in front, unless it is hidden.
FrontApplication GnomeClientWindows::front()
{
    const QList<ClientWindow> windows = all();
    return windows.isEmpty() || windows.first().isHidden ? FrontApplication()
                                                         : windows.first().application;
}

void GnomeClientWindows::activate(quint64 window)
{
    ShellCalls::call("Activate", { window });
}

void GnomeClientWindows::close(quint64 window)
{
    ShellCalls::call("Close", { window });
}

}
