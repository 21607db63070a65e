// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/wayland/PlasmaWindows.h"

#include <algorithm>
#include <plasma-window-management-client.h>

namespace Tessel {

namespace {

constexpr quint32 maxVersion = 17;

template <typename... Arguments>
void ignore(void * /*data*/, org_kde_plasma_window * /*proxy*/, Arguments... /*arguments*/)
{
}

template <typename... Arguments>
void ignoreAll(void * /*data*/, org_kde_plasma_window_management * /*proxy*/,
               Arguments... /*arguments*/)
{
}

}

struct PlasmaWindows::Window
{
    PlasmaWindows *owner;
    WaylandPtr<org_kde_plasma_window> proxy;
    WaylandWindow description;
    quint32 state = ORG_KDE_PLASMA_WINDOW_MANAGEMENT_STATE_SKIPTASKBAR; ///< until it is known
};

const org_kde_plasma_window_management_listener PlasmaWindows::managerListener = {
    .show_desktop_changed = ignoreAll,
    .window = ignoreAll,
    .stacking_order_changed = ignoreAll,
    .stacking_order_uuid_changed = ignoreAll,
    .window_with_uuid = [](void *self, org_kde_plasma_window_management *, quint32,
                           const char *uuid) { static_cast<PlasmaWindows *>(self)->add(uuid); },
    .stacking_order_changed_2 = ignoreAll,
};

const org_kde_plasma_window_listener PlasmaWindows::windowListener = {
    .title_changed =
        [](void *window, org_kde_plasma_window *, const char *title) {
            static_cast<Window *>(window)->description.title = QString::fromUtf8(title);
        },
    .app_id_changed =
        [](void *window, org_kde_plasma_window *, const char *id) {
            static_cast<Window *>(window)->description.applicationId = QString::fromUtf8(id);
        },
    .state_changed =
        [](void *data, org_kde_plasma_window *, quint32 flags) {
            auto *window = static_cast<Window *>(data);
            window->owner->setState(*window, flags);
        },
    .virtual_desktop_changed = ignore,
    .themed_icon_name_changed = ignore,
    .unmapped =
        [](void *data, org_kde_plasma_window *) {
            auto *window = static_cast<Window *>(data);
            window->owner->remove(*window);
        },
    .initial_state = ignore,
    .parent_window = ignore,
    .geometry = ignore,
    .icon_changed = ignore,
    .pid_changed
    = [](void *window, org_kde_plasma_window *,
         quint32 processId) { static_cast<Window *>(window)->description.processId = processId; },
    .virtual_desktop_entered = ignore,
    .virtual_desktop_left = ignore,
    .application_menu = ignore,
    .activity_entered = ignore,
    .activity_left = ignore,
    .resource_name_changed = ignore,
};

bool PlasmaWindows::isOffered(const WaylandConnection &connection)
{
    return connection.offers(org_kde_plasma_window_management_interface.name);
}

PlasmaWindows::PlasmaWindows(WaylandConnection &connection)
    : m_connection(connection)
    , m_manager(connection.bind<org_kde_plasma_window_management>(
                    org_kde_plasma_window_management_interface, maxVersion),
                org_kde_plasma_window_management_destroy)
{
    if (m_manager)
        org_kde_plasma_window_management_add_listener(m_manager.get(), &managerListener, this);
}

PlasmaWindows::~PlasmaWindows() = default;

QList<WaylandWindow> PlasmaWindows::all() const
{
    QList<WaylandWindow> windows;
    for (const Window &window : m_windows) {
        if (!(window.state & ORG_KDE_PLASMA_WINDOW_MANAGEMENT_STATE_SKIPTASKBAR))
            windows += window.description;
    }
    return windows;
}

std::optional<WaylandWindow> PlasmaWindows::active() const
{
    const auto found = std::find_if(m_windows.cbegin(), m_windows.cend(), [](const Window &window) {
        return window.state & ORG_KDE_PLASMA_WINDOW_MANAGEMENT_STATE_ACTIVE;
    });
    return found == m_windows.cend() ? std::nullopt : std::optional(found->description);
}

void PlasmaWindows::activate(quint64 handle)
{
    if (org_kde_plasma_window *proxy = proxyOf(handle)) {
        constexpr quint32 active = ORG_KDE_PLASMA_WINDOW_MANAGEMENT_STATE_ACTIVE;
        org_kde_plasma_window_set_state(
            proxy, active | ORG_KDE_PLASMA_WINDOW_MANAGEMENT_STATE_MINIMIZED, active);
        m_connection.flush();
    }
}

void PlasmaWindows::close(quint64 handle)
{
    if (org_kde_plasma_window *proxy = proxyOf(handle)) {
        org_kde_plasma_window_close(proxy);
        m_connection.flush();
    }
}

org_kde_plasma_window *PlasmaWindows::proxyOf(quint64 handle) const
{
    const auto found
        = std::find_if(m_windows.cbegin(), m_windows.cend(), [handle](const Window &window) {
              return window.description.handle == handle;
          });
    return found == m_windows.cend() ? nullptr : found->proxy.get();
}

void PlasmaWindows::add(const char *uuid)
{
    org_kde_plasma_window *proxy
        = org_kde_plasma_window_management_get_window_by_uuid(m_manager.get(), uuid);
    Window &window
        = m_windows.emplace_back(Window { this, { proxy, org_kde_plasma_window_destroy }, {} });
    window.description.handle = ++m_lastHandle;
    org_kde_plasma_window_add_listener(proxy, &windowListener, &window);
}

void PlasmaWindows::setState(Window &window, quint32 flags)
{
    constexpr quint32 active = ORG_KDE_PLASMA_WINDOW_MANAGEMENT_STATE_ACTIVE;
    const quint32 before = std::exchange(window.state, flags);
    window.description.isMinimized = flags & ORG_KDE_PLASMA_WINDOW_MANAGEMENT_STATE_MINIMIZED;
    if (!((before ^ flags) & active))
        return;
    if (flags & active) {
        const auto place
            = std::find_if(m_windows.cbegin(), m_windows.cend(),
                           [&window](const Window &candidate) { return &candidate == &window; });
        m_windows.splice(m_windows.cbegin(), m_windows, place);
    }
    Q_EMIT activeChanged();
}

void PlasmaWindows::remove(Window &window)
{
    const bool wasActive = window.state & ORG_KDE_PLASMA_WINDOW_MANAGEMENT_STATE_ACTIVE;
    m_windows.remove_if([&window](const Window &candidate) { return &candidate == &window; });
    if (wasActive)
        Q_EMIT activeChanged();
}

}
