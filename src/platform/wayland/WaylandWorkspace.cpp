// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/wayland/WaylandWorkspace.h"

#include "platform/wayland/OwnWindows.h"
#include "platform/wayland/WaylandWindows.h"

namespace Tessel {

WaylandWorkspace::WaylandWorkspace(WaylandWindows &windows, QStringList missingAccess)
    : m_windows(windows)
    , m_missingAccess(std::move(missingAccess))
{
}

std::optional<FrontApplication> WaylandWorkspace::frontmostApplication()
{
    const auto window = m_windows.active();
    if (!window)
        return {};
    FrontApplication application = applicationNamed(namesOf(*window));
    application.window = window->handle;
    return application;
}

void WaylandWorkspace::bringToFront(quint64 id)
{
    QWindow *window = OwnWindows::withId(id);
    if (!window)
        return;
    for (const WaylandWindow &candidate : m_windows.all()) {
        if (OwnWindows::isSame(candidate, *window))
            return m_windows.activate(candidate.handle);
    }
    OwnWindows::showAnew(*window); // the compositor does not list windows
}

}
