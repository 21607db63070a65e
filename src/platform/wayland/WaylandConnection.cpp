// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/wayland/WaylandConnection.h"

#include <QAbstractEventDispatcher>
#include <QSocketNotifier>

#include <algorithm>
#include <cerrno>
#include <wayland-client.h>

using namespace Qt::StringLiterals;

namespace Tessel {

const wl_registry_listener WaylandConnection::registryListener = {
    [](void *self, wl_registry *, quint32 name, const char *interface, quint32 version) {
        static_cast<WaylandConnection *>(self)->add({ name, interface, version });
    },
    [](void *self, wl_registry *, quint32 name) {
        static_cast<WaylandConnection *>(self)->remove(name);
    },
};

Result<std::unique_ptr<WaylandConnection>> WaylandConnection::open()
{
    wl_display *display = wl_display_connect(nullptr);
    if (display) {
        auto connection = std::unique_ptr<WaylandConnection>(new WaylandConnection(display));
        if (connection->roundTrip())
            return connection;
    }
    return Failure { u"The compositor at WAYLAND_DISPLAY=%1 does not answer."_s.arg(
        qEnvironmentVariable("WAYLAND_DISPLAY")) };
}

WaylandConnection::WaylandConnection(wl_display *display)
    : m_display(display, wl_display_disconnect)
    , m_registry(wl_display_get_registry(display), wl_registry_destroy)
    , m_seat(nullptr, wl_seat_destroy)
{
    wl_registry_add_listener(m_registry.get(), &registryListener, this);
}

WaylandConnection::~WaylandConnection() = default;

void WaylandConnection::start()
{
    if (m_notifier)
        return;
    m_notifier = new QSocketNotifier(wl_display_get_fd(display()), QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &WaylandConnection::dispatch);
    // A round trip may leave events behind, and whoever made requests does not send them.
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
            [this] {
                if (wl_display_dispatch_pending(display()) < 0)
                    lose();
                flush();
            });
}

bool WaylandConnection::offers(const char *interface) const
{
    return std::any_of(m_globals.cbegin(), m_globals.cend(),
                       [interface](const Global &global) { return global.interface == interface; });
}

void *WaylandConnection::bindFirst(const wl_interface &interface, quint32 version) const
{
    for (const Global &global : m_globals) {
        if (global.interface == interface.name)
            return bindGlobal(global, interface, version);
    }
    return nullptr;
}

void *WaylandConnection::bindGlobal(const Global &global, const wl_interface &interface,
                                    quint32 version) const
{
    return wl_registry_bind(m_registry.get(), global.name, &interface,
                            std::min(version, global.version));
}

void WaylandConnection::add(const Global &global)
{
    m_globals += global;
    if (!m_seat && global.interface == wl_seat_interface.name)
        m_seat.reset(bind<wl_seat>(global, wl_seat_interface, 1));
    Q_EMIT globalAdded(global);
}

void WaylandConnection::remove(quint32 name)
{
    m_globals.removeIf([name](const Global &global) { return global.name == name; });
    Q_EMIT globalRemoved(name);
}

void WaylandConnection::flush()
{
    // A compositor that reads nothing for long is not waited for: the rest goes the next time.
    if (wl_display_flush(display()) < 0 && errno != EAGAIN)
        lose();
}

bool WaylandConnection::roundTrip()
{
    if (wl_display_roundtrip(display()) >= 0)
        return true;
    lose();
    return false;
}

/// Does not wait: a round trip may have read what made the socket readable.
void WaylandConnection::dispatch()
{
    while (wl_display_prepare_read(display()) != 0) {
        if (wl_display_dispatch_pending(display()) < 0)
            return lose();
    }
    if (wl_display_read_events(display()) < 0 || wl_display_dispatch_pending(display()) < 0)
        return lose();
    flush();
}

void WaylandConnection::lose()
{
    if (m_isLost)
        return;
    m_isLost = true;
    if (m_notifier)
        m_notifier->setEnabled(false);
    Q_EMIT lost();
}

}
