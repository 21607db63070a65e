// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/wayland/ForeignToplevels.h"

#include <algorithm>
#include <span>
#include <wlr-foreign-toplevel-management-client.h>

namespace Tessel {

namespace {

constexpr quint32 maxVersion = 3;

std::span<const quint32> itemsOf(const wl_array &array)
{
    return { static_cast<const quint32 *>(array.data), array.size / sizeof(quint32) };
}

bool contains(const wl_array &states, zwlr_foreign_toplevel_handle_v1_state state)
{
    const auto items = itemsOf(states);
    return std::find(items.begin(), items.end(), state) != items.end();
}

}

/// Changes count when the compositor has said that they are complete; before that has happened once
/// there is no handle.
struct ForeignToplevels::Toplevel
{
    struct State
    {
        WaylandWindow window;
        bool isActive = false;
    };

    ForeignToplevels *owner;
    WaylandPtr<zwlr_foreign_toplevel_handle_v1> proxy;
    State next;
    State current;
};

const zwlr_foreign_toplevel_manager_v1_listener ForeignToplevels::managerListener = {
    [](void *self, zwlr_foreign_toplevel_manager_v1 *, zwlr_foreign_toplevel_handle_v1 *proxy) {
        static_cast<ForeignToplevels *>(self)->add(proxy);
    },
    [](void *self, zwlr_foreign_toplevel_manager_v1 *) {
        static_cast<ForeignToplevels *>(self)->m_manager.reset();
    },
};

const zwlr_foreign_toplevel_handle_v1_listener ForeignToplevels::handleListener = {
    [](void *toplevel, zwlr_foreign_toplevel_handle_v1 *, const char *title) {
        static_cast<Toplevel *>(toplevel)->next.window.title = QString::fromUtf8(title);
    },
    [](void *toplevel, zwlr_foreign_toplevel_handle_v1 *, const char *id) {
        static_cast<Toplevel *>(toplevel)->next.window.applicationId = QString::fromUtf8(id);
    },
    [](void *, zwlr_foreign_toplevel_handle_v1 *, wl_output *) {},
    [](void *, zwlr_foreign_toplevel_handle_v1 *, wl_output *) {},
    [](void *toplevel, zwlr_foreign_toplevel_handle_v1 *, wl_array *states) {
        auto &next = static_cast<Toplevel *>(toplevel)->next;
        next.isActive = contains(*states, ZWLR_FOREIGN_TOPLEVEL_HANDLE_V1_STATE_ACTIVATED);
        next.window.isMinimized
            = contains(*states, ZWLR_FOREIGN_TOPLEVEL_HANDLE_V1_STATE_MINIMIZED);
    },
    [](void *data, zwlr_foreign_toplevel_handle_v1 *) {
        auto *toplevel = static_cast<Toplevel *>(data);
        toplevel->owner->update(*toplevel);
    },
    [](void *data, zwlr_foreign_toplevel_handle_v1 *) {
        auto *toplevel = static_cast<Toplevel *>(data);
        toplevel->owner->remove(*toplevel);
    },
    [](void *, zwlr_foreign_toplevel_handle_v1 *, zwlr_foreign_toplevel_handle_v1 *) {},
};

bool ForeignToplevels::isOffered(const WaylandConnection &connection)
{
    return connection.offers(zwlr_foreign_toplevel_manager_v1_interface.name);
}

ForeignToplevels::ForeignToplevels(WaylandConnection &connection)
    : m_connection(connection)
    , m_manager(connection.bind<zwlr_foreign_toplevel_manager_v1>(
                    zwlr_foreign_toplevel_manager_v1_interface, maxVersion),
                zwlr_foreign_toplevel_manager_v1_destroy)
{
    if (m_manager)
        zwlr_foreign_toplevel_manager_v1_add_listener(m_manager.get(), &managerListener, this);
}

ForeignToplevels::~ForeignToplevels()
{
    if (m_manager)
        zwlr_foreign_toplevel_manager_v1_stop(m_manager.get());
}

QList<WaylandWindow> ForeignToplevels::all() const
{
    QList<WaylandWindow> windows;
    for (const Toplevel &toplevel : m_toplevels) {
        if (toplevel.current.window.handle)
            windows += toplevel.current.window;
    }
    return windows;
}

std::optional<WaylandWindow> ForeignToplevels::active() const
{
    const Toplevel *toplevel = activeToplevel();
    return toplevel ? std::optional(toplevel->current.window) : std::nullopt;
}

/// Each seat can have one.
const ForeignToplevels::Toplevel *ForeignToplevels::activeToplevel() const
{
    const auto found
        = std::find_if(m_toplevels.cbegin(), m_toplevels.cend(),
                       [](const Toplevel &toplevel) { return toplevel.current.isActive; });
    return found == m_toplevels.cend() ? nullptr : &*found;
}

void ForeignToplevels::activate(quint64 handle)
{
    zwlr_foreign_toplevel_handle_v1 *proxy = proxyOf(handle);
    if (!proxy || !m_connection.seat())
        return;
    zwlr_foreign_toplevel_handle_v1_unset_minimized(proxy);
    zwlr_foreign_toplevel_handle_v1_activate(proxy, m_connection.seat());
    m_connection.flush();
}

void ForeignToplevels::close(quint64 handle)
{
    if (zwlr_foreign_toplevel_handle_v1 *proxy = proxyOf(handle)) {
        zwlr_foreign_toplevel_handle_v1_close(proxy);
        m_connection.flush();
    }
}

zwlr_foreign_toplevel_handle_v1 *ForeignToplevels::proxyOf(quint64 handle) const
{
    const auto found = std::find_if(
        m_toplevels.cbegin(), m_toplevels.cend(),
        [handle](const Toplevel &toplevel) { return toplevel.current.window.handle == handle; });
    return found == m_toplevels.cend() ? nullptr : found->proxy.get();
}

void ForeignToplevels::add(zwlr_foreign_toplevel_handle_v1 *proxy)
{
    Toplevel &toplevel = m_toplevels.emplace_back(
        Toplevel { this, { proxy, zwlr_foreign_toplevel_handle_v1_destroy }, {}, {} });
    toplevel.next.window.handle = ++m_lastHandle;
    zwlr_foreign_toplevel_handle_v1_add_listener(proxy, &handleListener, &toplevel);
}

void ForeignToplevels::update(Toplevel &toplevel)
{
    const bool becameActive = toplevel.next.isActive && !toplevel.current.isActive;
    toplevel.current = toplevel.next;
    if (becameActive) {
        const auto place = std::find_if(
            m_toplevels.cbegin(), m_toplevels.cend(),
            [&toplevel](const Toplevel &candidate) { return &candidate == &toplevel; });
        m_toplevels.splice(m_toplevels.cbegin(), m_toplevels, place);
    }
    reportActive();
}

void ForeignToplevels::remove(Toplevel &toplevel)
{
    m_toplevels.remove_if(
        [&toplevel](const Toplevel &candidate) { return &candidate == &toplevel; });
    reportActive();
}

void ForeignToplevels::reportActive()
{
    const Toplevel *toplevel = activeToplevel();
    const quint64 handle = toplevel ? toplevel->current.window.handle : 0;
    if (std::exchange(m_reported, handle) != handle)
        Q_EMIT activeChanged();
}

}
