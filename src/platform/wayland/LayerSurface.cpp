// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/wayland/LayerSurface.h"

#include <QGuiApplication>
#include <QScreen>
#include <qpa/qplatformnativeinterface.h>

#include <cstring>
#include <wayland-client.h>
#include <wlr-layer-shell-client.h>

namespace Tessel {

namespace {

constexpr quint32 shellVersion = 3;
constexpr quint32 topLeft = ZWLR_LAYER_SURFACE_V1_ANCHOR_TOP | ZWLR_LAYER_SURFACE_V1_ANCHOR_LEFT;
constexpr int ignoresPanels = -1;

struct Found
{
    zwlr_layer_shell_v1 *shell = nullptr;
    wl_subcompositor *subcompositor = nullptr;
};

const wl_registry_listener findGlobals = {
    [](void *data, wl_registry *registry, quint32 name, const char *interface, quint32 version) {
        auto &found = *static_cast<Found *>(data);
        if (std::strcmp(interface, zwlr_layer_shell_v1_interface.name) == 0)
            found.shell = static_cast<zwlr_layer_shell_v1 *>(wl_registry_bind(
                registry, name, &zwlr_layer_shell_v1_interface, qMin(shellVersion, version)));
        else if (std::strcmp(interface, wl_subcompositor_interface.name) == 0)
            found.subcompositor = static_cast<wl_subcompositor *>(
                wl_registry_bind(registry, name, &wl_subcompositor_interface, 1));
    },
    [](void *, wl_registry *, quint32) {},
};

QScreen *screenOf(const QWindow &window)
{
    QScreen *screen = QGuiApplication::screenAt(window.geometry().center());
    return screen ? screen : QGuiApplication::primaryScreen();
}

}

wl_surface *nativeSurface(QWindow &window)
{
    return static_cast<wl_surface *>(
        QGuiApplication::platformNativeInterface()->nativeResourceForWindow("surface", &window));
}

wl_output *nativeOutput(QScreen &screen)
{
    return static_cast<wl_output *>(
        QGuiApplication::platformNativeInterface()->nativeResourceForScreen("output", &screen));
}

LayerShell::LayerShell()
    : m_display(static_cast<wl_display *>(
        QGuiApplication::platformNativeInterface()->nativeResourceForIntegration("wl_display")))
    , m_queue(wl_display_create_queue(m_display), wl_event_queue_destroy)
    , m_shell(nullptr, zwlr_layer_shell_v1_destroy)
    , m_subcompositor(nullptr, wl_subcompositor_destroy)
{
    // The registry is made on the queue at once: an event must not come to Qt's first.
    const WaylandPtr<wl_display> wrapper(
        static_cast<wl_display *>(wl_proxy_create_wrapper(m_display)),
        [](wl_display *proxy) { wl_proxy_wrapper_destroy(proxy); });
    wl_proxy_set_queue(reinterpret_cast<wl_proxy *>(wrapper.get()), queue());
    const WaylandPtr<wl_registry> registry(wl_display_get_registry(wrapper.get()),
                                           wl_registry_destroy);
    Found found;
    wl_registry_add_listener(registry.get(), &findGlobals, &found);
    wl_display_roundtrip_queue(m_display, queue());
    m_shell.reset(found.shell);
    m_subcompositor.reset(found.subcompositor);
}

WaylandPtr<wl_subsurface> LayerShell::attach(QWindow &window, QWindow &parent) const
{
    WaylandPtr<wl_subsurface> role(wl_subcompositor_get_subsurface(m_subcompositor.get(),
                                                                   nativeSurface(window),
                                                                   nativeSurface(parent)),
                                   wl_subsurface_destroy);
    const QPoint place = window.position() - parent.position();
    wl_subsurface_set_position(role.get(), place.x(), place.y());
    wl_subsurface_set_desync(role.get());
    wl_surface_commit(nativeSurface(parent)); // which has the place
    return role;
}

const zwlr_layer_surface_v1_listener LayerSurface::listener = {
    [](void *self, zwlr_layer_surface_v1 *, quint32 serial, quint32, quint32) {
        static_cast<LayerSurface *>(self)->acknowledge(serial);
    },
    [](void *, zwlr_layer_surface_v1 *) {}, // its output has gone, and with it what was shown
};

LayerSurface::LayerSurface(const LayerShell &shell, QWindow &window, Keyboard keyboard)
    : m_window(&window)
    , m_keyboard(keyboard)
    , m_surface(zwlr_layer_shell_v1_get_layer_surface(shell.shell(), nativeSurface(window),
                                                      nativeOutput(*screenOf(window)),
                                                      ZWLR_LAYER_SHELL_V1_LAYER_OVERLAY, "tessel"),
                zwlr_layer_surface_v1_destroy)
{
    zwlr_layer_surface_v1_add_listener(m_surface.get(), &listener, this);
    zwlr_layer_surface_v1_set_anchor(m_surface.get(), topLeft);
    zwlr_layer_surface_v1_set_exclusive_zone(m_surface.get(), ignoresPanels);
    requestState();
    // Without a first configuration the surface must have no content.
    while (!m_isConfigured && wl_display_roundtrip_queue(shell.display(), shell.queue()) >= 0) { }
    // From here on the events come with Qt's.
    wl_proxy_set_queue(reinterpret_cast<wl_proxy *>(m_surface.get()), nullptr);

    for (const auto changed : { &QWindow::xChanged, &QWindow::yChanged, &QWindow::widthChanged,
                                &QWindow::heightChanged })
        connect(&window, changed, this, &LayerSurface::requestState);
}

LayerSurface::~LayerSurface() = default;

void LayerSurface::setKeyboard(Keyboard keyboard)
{
    if (std::exchange(m_keyboard, keyboard) != keyboard)
        requestState();
}

void LayerSurface::requestState()
{
    const QRect geometry = m_window->geometry();
    const QPoint place = geometry.topLeft() - screenOf(*m_window)->geometry().topLeft();
    zwlr_layer_surface_v1_set_size(m_surface.get(), quint32(geometry.width()),
                                   quint32(geometry.height()));
    zwlr_layer_surface_v1_set_margin(m_surface.get(), place.y(), 0, 0, place.x());
    zwlr_layer_surface_v1_set_keyboard_interactivity(
        m_surface.get(),
        m_keyboard == Keyboard::exclusive ? ZWLR_LAYER_SURFACE_V1_KEYBOARD_INTERACTIVITY_EXCLUSIVE
                                          : ZWLR_LAYER_SURFACE_V1_KEYBOARD_INTERACTIVITY_NONE);
    commit();
}

void LayerSurface::acknowledge(quint32 serial)
{
    zwlr_layer_surface_v1_ack_configure(m_surface.get(), serial);
    m_isConfigured = true;
}

/// Between two of Qt's own commits: nothing of Qt's is half done then.
void LayerSurface::commit()
{
    if (wl_surface *surface = m_window ? nativeSurface(*m_window) : nullptr)
        wl_surface_commit(surface);
}

}
