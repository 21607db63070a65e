// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/wayland/WaylandConnection.h"
#include "platform/wayland/WaylandWindows.h"

#include <list>

struct zwlr_foreign_toplevel_handle_v1;
struct zwlr_foreign_toplevel_handle_v1_listener;
struct zwlr_foreign_toplevel_manager_v1;
struct zwlr_foreign_toplevel_manager_v1_listener;

namespace Tessel {

/// The windows as compositors of the wlroots family list them for task bars
/// (wlr-foreign-toplevel-management-unstable-v1). They tell no processes.
class ForeignToplevels final : public WaylandWindows
{
    Q_OBJECT

public:
    [[nodiscard]] static bool isOffered(const WaylandConnection &connection);

    /// Without any windows where they are not offered. They are known after a round trip.
    explicit ForeignToplevels(WaylandConnection &connection);
    ~ForeignToplevels() override;

    [[nodiscard]] QList<WaylandWindow> all() const override;
    [[nodiscard]] std::optional<WaylandWindow> active() const override;
    void activate(quint64 handle) override;
    void close(quint64 handle) override;

private:
    struct Toplevel;

    void add(zwlr_foreign_toplevel_handle_v1 *proxy);
    void update(Toplevel &toplevel);
    void remove(Toplevel &toplevel);
    void reportActive();
    [[nodiscard]] const Toplevel *activeToplevel() const;
    [[nodiscard]] zwlr_foreign_toplevel_handle_v1 *proxyOf(quint64 handle) const;

    static const zwlr_foreign_toplevel_manager_v1_listener managerListener;
    static const zwlr_foreign_toplevel_handle_v1_listener handleListener;

    WaylandConnection &m_connection;
    WaylandPtr<zwlr_foreign_toplevel_manager_v1> m_manager;
    std::list<Toplevel> m_toplevels; ///< in the order of all()
    quint64 m_lastHandle = 0;
    quint64 m_reported = 0; ///< the active one, when it was last announced
};

}
