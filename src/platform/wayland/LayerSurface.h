// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/wayland/WaylandConnection.h"

#include <QPointer>
#include <QRect>
#include <QWindow>

class QScreen;
struct wl_event_queue;
struct wl_output;
struct wl_subcompositor;
struct wl_subsurface;
struct wl_surface;
struct zwlr_layer_shell_v1;
struct zwlr_layer_surface_v1;
struct zwlr_layer_surface_v1_listener;

namespace Tessel {

/// The compositor's layers (wlr-layer-shell-unstable-v1), on the connection of Qt, whose windows
/// are to be placed. Qt gives a window with Qt::BypassWindowManagerHint a surface without a role
/// when QT_WAYLAND_USE_BYPASSWINDOWMANAGERHINT is set.
class LayerShell final
{
public:
    LayerShell();
    Q_DISABLE_COPY_MOVE(LayerShell)

    [[nodiscard]] zwlr_layer_shell_v1 *shell() const { return m_shell.get(); } ///< null: none
    [[nodiscard]] wl_display *display() const { return m_display; }
    [[nodiscard]] wl_event_queue *queue() const { return m_queue.get(); }

    /// Shows a window that has no role yet above another, which has one, as a part of it, until the
    /// result is destroyed; that has to be before the window is hidden.
    [[nodiscard]] WaylandPtr<wl_subsurface> attach(QWindow &window, QWindow &parent) const;

private:
    wl_display *m_display; ///< Qt's
    WaylandPtr<wl_event_queue> m_queue; ///< for answers that are waited for
    WaylandPtr<zwlr_layer_shell_v1> m_shell;
    WaylandPtr<wl_subcompositor> m_subcompositor;
};

/// Puts a window of Qt's above all others, at its place on its screen, for as long as this lives:
/// made before the window is shown, and destroyed before it is hidden, as its surface must not go
/// before its role (that order is a protocol error).
class LayerSurface final : public QObject
{
    Q_OBJECT

public:
    enum class Keyboard { none, exclusive };

    LayerSurface(const LayerShell &shell, QWindow &window, Keyboard keyboard);
    ~LayerSurface() override;

    void setKeyboard(Keyboard keyboard);

private:
    void requestState();
    void acknowledge(quint32 serial);
    void commit();

    static const zwlr_layer_surface_v1_listener listener;

    QPointer<QWindow> m_window;
    Keyboard m_keyboard;
    WaylandPtr<zwlr_layer_surface_v1> m_surface;
    bool m_isConfigured = false;
};

/// Qt's native surface of a created window, and the output of a screen; null where there is none.
[[nodiscard]] wl_surface *nativeSurface(QWindow &window);
[[nodiscard]] wl_output *nativeOutput(QScreen &screen);

}
