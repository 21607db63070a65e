// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/gnome/GnomeWorkspace.h"

#include "platform/gnome/BareDesktop.h"
#include "platform/gnome/ShellBridge.h"
#include "platform/gnome/ShellInterface.h"
#include "platform/wayland/OwnWindows.h"

namespace Tessel {

namespace {

/// A native one, on a bare desktop: like a terminal it can be sent no keys, and has its marked
/// text.
FrontApplication nativeApplication()
{
    FrontApplication application;
    application.isTerminal = true;
    return application;
}

}

std::optional<FrontApplication> GnomeWorkspace::frontmostApplication()
{
    if (Platform *x11 = m_bare.x11())
        return x11->workspace().frontmostApplication().value_or(nativeApplication());
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
