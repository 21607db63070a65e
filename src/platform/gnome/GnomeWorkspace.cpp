// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/gnome/GnomeWorkspace.h"

#include "platform/gnome/ShellBridge.h"
#include "platform/gnome/ShellInterface.h"
#include "platform/wayland/OwnWindows.h"

namespace Tessel {

std::optional<FrontApplication> GnomeWorkspace::frontmostApplication()
{
    const auto window = m_bridge.active();
    if (!window)
        return {};
    FrontApplication application = applicationNamed(namesOf(*window));
    application.window = window->handle;
    return application;
}

void GnomeWorkspace::bringToFront(quint64 id)
{
    QWindow *window = OwnWindows::withId(id);
    if (!window)
        return;
    if (!m_bridge.isAttached())
        return OwnWindows::showAnew(*window);
    m_bridge.call("Windows", {}, window, [this, window](const QVariantList &reply) {
        for (const WaylandWindow &candidate : ShellInterface::windowsOf(reply.value(0))) {
            if (OwnWindows::isSame(candidate, *window))
                return m_bridge.send("Activate", { candidate.handle });
        }
    });
}

}
