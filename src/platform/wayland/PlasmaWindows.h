// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/wayland/WaylandConnection.h"
#include "platform/wayland/WaylandWindows.h"

#include <list>

struct org_kde_plasma_window;
struct org_kde_plasma_window_listener;
struct org_kde_plasma_window_management;
struct org_kde_plasma_window_management_listener;

namespace Tessel {

/// The windows as KWin lists them for Plasma's task bar (plasma-window-management).
class PlasmaWindows final : public WaylandWindows
{
    Q_OBJECT

public:
    /// Only to programs whose desktop entry asks for it, and names their full path.
    [[nodiscard]] static bool isOffered(const WaylandConnection &connection);

    /// They are known after two round trips.
    explicit PlasmaWindows(WaylandConnection &connection);
    ~PlasmaWindows() override;

    [[nodiscard]] QList<WaylandWindow> all() const override;
    [[nodiscard]] std::optional<WaylandWindow> active() const override;
    void activate(quint64 handle) override;
    void close(quint64 handle) override;

private:
    struct Window;

    void add(const char *uuid);
    void setState(Window &window, quint32 flags);
    void remove(Window &window);
    [[nodiscard]] org_kde_plasma_window *proxyOf(quint64 handle) const;

    static const org_kde_plasma_window_management_listener managerListener;
    static const org_kde_plasma_window_listener windowListener;

    WaylandConnection &m_connection;
    WaylandPtr<org_kde_plasma_window_management> m_manager;
    std::list<Window> m_windows; ///< in the order of all()
    quint64 m_lastHandle = 0;
};

}
