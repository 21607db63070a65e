// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Result.h"

#include <QByteArray>
#include <QList>
#include <QObject>

#include <memory>

struct wl_display;
struct wl_interface;
struct wl_registry;
struct wl_registry_listener;
struct wl_seat;
class QSocketNotifier;

namespace Tessel {

/// Owner of a protocol object, with the request that destroys it.
template <typename T> using WaylandPtr = std::unique_ptr<T, void (*)(T *)>;

/// A connection to the compositor apart from Qt's: what waits in one does not delay the other.
/// Proxies that are bound through it are of its default queue and must not outlive it.
class WaylandConnection final : public QObject
{
    Q_OBJECT

public:
    /// Something that the compositor offers (wl_registry).
    struct Global
    {
        quint32 name = 0; ///< the registry's number
        QByteArray interface;
        quint32 version = 0; ///< the highest that the compositor knows
    };

    /// Fails when the compositor of $WAYLAND_DISPLAY cannot be reached. Waits for what it offers.
    [[nodiscard]] static Result<std::unique_ptr<WaylandConnection>> open();
    ~WaylandConnection() override;

    /// Begins to deliver events, once; needs the application object.
    void start();

    [[nodiscard]] wl_display *display() const { return m_display.get(); }
    [[nodiscard]] wl_seat *seat() const { return m_seat.get(); } ///< the first one; null: none

    [[nodiscard]] const QList<Global> &globals() const { return m_globals; }
    [[nodiscard]] bool offers(const char *interface) const;

    /// The proxy of the global with the interface's name, of this version or the compositor's lower
    /// one; null when it is not offered.
    template <typename T>
    [[nodiscard]] T *bind(const wl_interface &interface, quint32 version) const
    {
        return static_cast<T *>(bindFirst(interface, version));
    }
    template <typename T>
    [[nodiscard]] T *bind(const Global &global, const wl_interface &interface,
                          quint32 version) const
    {
        return static_cast<T *>(bindGlobal(global, interface, version));
    }

    /// Sends what was requested. Once started, that happens by itself before the program waits.
    void flush();

    /// Waits until the compositor has handled all requests, and delivers its events. False when it
    /// has gone.
    bool roundTrip();

Q_SIGNALS:
    void globalAdded(const Tessel::WaylandConnection::Global &global);
    void globalRemoved(quint32 name);
    void lost(); ///< the compositor has gone, or has ended the connection

private:
    explicit WaylandConnection(wl_display *display);
    [[nodiscard]] void *bindFirst(const wl_interface &interface, quint32 version) const;
    [[nodiscard]] void *bindGlobal(const Global &global, const wl_interface &interface,
                                   quint32 version) const;
    void add(const Global &global);
    void remove(quint32 name);
    void dispatch();
    void lose();

    static const wl_registry_listener registryListener;

    WaylandPtr<wl_display> m_display;
    WaylandPtr<wl_registry> m_registry;
    WaylandPtr<wl_seat> m_seat;
    QList<Global> m_globals;
    QSocketNotifier *m_notifier = nullptr;
    bool m_isLost = false;
};

}
