// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/wayland/WaylandConnection.h"

#include <QPointF>
#include <QPointer>
#include <QRegion>

#include <vector>

struct wl_buffer;
struct wl_compositor;
struct wl_pointer;
struct wl_pointer_listener;
struct wl_seat_listener;
struct wl_surface;
struct wp_viewporter;
struct zwlr_layer_shell_v1;
struct zwlr_virtual_pointer_v1;

namespace Tessel {

/// Finds the pointer, and hears of clicks and scrolling, by lying above all windows of every output
/// for a while: one transparent pixel each, stretched. What it catches comes to nobody else.
class PointerCatcher final : public QObject
{
    Q_OBJECT

public:
    explicit PointerCatcher(WaylandConnection &connection);
    ~PointerCatcher() override;

    /// Lies above everything until the returned token is destroyed.
    [[nodiscard]] std::shared_ptr<void> spread();

    /// Of an output, by its name: where clicks go through, in logical pixels on it. A popup needs
    /// that: with sway 1.7 what was shown first lies above what comes later.
    void leaveOpen(const QString &output, const QRegion &region);

Q_SIGNALS:
    /// Once after it was spread: on which output, by its name, and where on it, in logical pixels.
    void found(const QString &output, QPointF place);
    void pressed();
    void scrolled();

private:
    class Sheet;

    void add(const WaylandConnection::Global &global);
    void getPointer();
    void enter(wl_surface *surface, QPointF place);
    void nudge();

    static const wl_seat_listener seatListener;
    static const wl_pointer_listener pointerListener;

    WaylandConnection &m_connection;
    WaylandPtr<wl_compositor> m_compositor;
    WaylandPtr<wp_viewporter> m_viewporter;
    WaylandPtr<zwlr_layer_shell_v1> m_shell;
    WaylandPtr<wl_buffer> m_pixel;
    WaylandPtr<wl_seat> m_seat;
    WaylandPtr<wl_pointer> m_pointer;
    WaylandPtr<zwlr_virtual_pointer_v1> m_hand; ///< null where there is no such thing
    std::vector<std::unique_ptr<Sheet>> m_sheets; ///< of each output
    std::weak_ptr<void> m_watch;
    bool m_isFound = false;
};

}
