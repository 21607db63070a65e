// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/wayland/PointerCatcher.h"

#include "base/Descriptor.h"

#include <sys/mman.h>
#include <unistd.h>
#include <viewporter-client.h>
#include <wayland-client.h>
#include <wlr-layer-shell-client.h>
#include <wlr-virtual-pointer-client.h>

namespace Tessel {

namespace {

constexpr quint32 outputVersionWithName = 4;
constexpr quint32 allEdges = ZWLR_LAYER_SURFACE_V1_ANCHOR_TOP | ZWLR_LAYER_SURFACE_V1_ANCHOR_BOTTOM
    | ZWLR_LAYER_SURFACE_V1_ANCHOR_LEFT | ZWLR_LAYER_SURFACE_V1_ANCHOR_RIGHT;
constexpr int ignoresPanels = -1;

/// One transparent pixel; null when there is no memory for it.
wl_buffer *makePixel(const WaylandConnection &connection)
{
    constexpr int bytes = 4;
    const Descriptor memory(memfd_create("tessel-pixel", MFD_CLOEXEC));
    const WaylandPtr<wl_shm> shm(connection.bind<wl_shm>(wl_shm_interface, 1), wl_shm_destroy);
    if (!shm || ftruncate(memory.number(), bytes) != 0)
        return nullptr;
    const WaylandPtr<wl_shm_pool> pool(wl_shm_create_pool(shm.get(), memory.number(), bytes),
                                       wl_shm_pool_destroy);
    return wl_shm_pool_create_buffer(pool.get(), 0, 1, 1, bytes, WL_SHM_FORMAT_ARGB8888);
}

}

/// What lies above one output.
class PointerCatcher::Sheet final
{
public:
    Sheet(PointerCatcher &catcher, const WaylandConnection::Global &global)
        : m_catcher(catcher)
        , m_number(global.name)
        , m_output(catcher.m_connection.bind<wl_output>(global, wl_output_interface,
                                                        outputVersionWithName),
                   wl_output_destroy)
    {
        wl_output_add_listener(m_output.get(), &outputListener, this);
    }
    Q_DISABLE_COPY_MOVE(Sheet)

    [[nodiscard]] const QString &name() const { return m_name; }
    [[nodiscard]] quint32 number() const { return m_number; }
    [[nodiscard]] bool isOf(const wl_surface *surface) const { return m_surface.get() == surface; }

    void show()
    {
        m_surface.reset(wl_compositor_create_surface(m_catcher.m_compositor.get()));
        m_viewport.reset(wp_viewporter_get_viewport(m_catcher.m_viewporter.get(), m_surface.get()));
        m_layer.reset(zwlr_layer_shell_v1_get_layer_surface(
            m_catcher.m_shell.get(), m_surface.get(), m_output.get(),
            ZWLR_LAYER_SHELL_V1_LAYER_OVERLAY, "tessel-pointer"));
        zwlr_layer_surface_v1_add_listener(m_layer.get(), &layerListener, this);
        zwlr_layer_surface_v1_set_anchor(m_layer.get(), allEdges);
        zwlr_layer_surface_v1_set_exclusive_zone(m_layer.get(), ignoresPanels);
        wl_surface_commit(m_surface.get());
    }

    void leaveOpen(const QRegion &region)
    {
        if (!m_surface)
            return;
        constexpr int everywhere = 1 << 20;
        const WaylandPtr<wl_region> input(wl_compositor_create_region(m_catcher.m_compositor.get()),
                                          wl_region_destroy);
        wl_region_add(input.get(), 0, 0, everywhere, everywhere);
        for (const QRect &part : region)
            wl_region_subtract(input.get(), part.x(), part.y(), part.width(), part.height());
        wl_surface_set_input_region(m_surface.get(), input.get());
        wl_surface_commit(m_surface.get());
    }

    void hide()
    {
        m_layer.reset();
        m_viewport.reset();
        m_surface.reset();
    }

private:
    void configure(quint32 serial, quint32 width, quint32 height)
    {
        zwlr_layer_surface_v1_ack_configure(m_layer.get(), serial);
        wp_viewport_set_destination(m_viewport.get(), int(width), int(height));
        wl_surface_attach(m_surface.get(), m_catcher.m_pixel.get(), 0, 0);
        wl_surface_commit(m_surface.get());
        m_catcher.nudge();
    }

    static const wl_output_listener outputListener;
    static const zwlr_layer_surface_v1_listener layerListener;

    PointerCatcher &m_catcher;
    quint32 m_number;
    WaylandPtr<wl_output> m_output;
    QString m_name;
    WaylandPtr<wl_surface> m_surface { nullptr, wl_surface_destroy };
    WaylandPtr<wp_viewport> m_viewport { nullptr, wp_viewport_destroy };
    WaylandPtr<zwlr_layer_surface_v1> m_layer { nullptr, zwlr_layer_surface_v1_destroy };
};

const wl_output_listener PointerCatcher::Sheet::outputListener = {
    [](void *, wl_output *, int, int, int, int, int, const char *, const char *, int) {},
    [](void *, wl_output *, quint32, int, int, int) {},
    [](void *, wl_output *) {},
    [](void *, wl_output *, int) {},
    [](void *self, wl_output *, const char *name) {
        static_cast<Sheet *>(self)->m_name = QString::fromUtf8(name);
    },
    [](void *, wl_output *, const char *) {},
};

const zwlr_layer_surface_v1_listener PointerCatcher::Sheet::layerListener = {
    [](void *self, zwlr_layer_surface_v1 *, quint32 serial, quint32 width, quint32 height) {
        static_cast<Sheet *>(self)->configure(serial, width, height);
    },
    [](void *self, zwlr_layer_surface_v1 *) { static_cast<Sheet *>(self)->hide(); },
};

const wl_seat_listener PointerCatcher::seatListener = {
    [](void *self, wl_seat *, quint32 capabilities) {
        if (capabilities & WL_SEAT_CAPABILITY_POINTER)
            static_cast<PointerCatcher *>(self)->getPointer();
    },
    [](void *, wl_seat *, const char *) {},
};

/// What versions later than ours have beside these never comes.
const wl_pointer_listener PointerCatcher::pointerListener = [] {
    wl_pointer_listener listener = {};
    listener.enter
        = [](void *self, wl_pointer *, quint32, wl_surface *surface, wl_fixed_t x, wl_fixed_t y) {
              static_cast<PointerCatcher *>(self)->enter(
                  surface, { wl_fixed_to_double(x), wl_fixed_to_double(y) });
          };
    listener.leave = [](void *, wl_pointer *, quint32, wl_surface *) {};
    listener.motion = [](void *, wl_pointer *, quint32, wl_fixed_t, wl_fixed_t) {};
    listener.button = [](void *self, wl_pointer *, quint32, quint32, quint32, quint32 state) {
        if (state == WL_POINTER_BUTTON_STATE_PRESSED)
            Q_EMIT static_cast<PointerCatcher *>(self)->pressed();
    };
    listener.axis = [](void *self, wl_pointer *, quint32, quint32, wl_fixed_t) {
        Q_EMIT static_cast<PointerCatcher *>(self)->scrolled();
    };
    return listener;
}();

PointerCatcher::PointerCatcher(WaylandConnection &connection)
    : m_connection(connection)
    , m_compositor(connection.bind<wl_compositor>(wl_compositor_interface, 1),
                   wl_compositor_destroy)
    , m_viewporter(connection.bind<wp_viewporter>(wp_viewporter_interface, 1),
                   wp_viewporter_destroy)
    , m_shell(connection.bind<zwlr_layer_shell_v1>(zwlr_layer_shell_v1_interface, 3),
              zwlr_layer_shell_v1_destroy)
    , m_pixel(makePixel(connection), wl_buffer_destroy)
    , m_seat(connection.bind<wl_seat>(wl_seat_interface, 1), wl_seat_destroy)
    , m_pointer(nullptr, wl_pointer_destroy)
    , m_hand(nullptr, zwlr_virtual_pointer_v1_destroy)
{
    if (m_seat)
        wl_seat_add_listener(m_seat.get(), &seatListener, this);
    const WaylandPtr<zwlr_virtual_pointer_manager_v1> hands(
        connection.bind<zwlr_virtual_pointer_manager_v1>(zwlr_virtual_pointer_manager_v1_interface,
                                                         1),
        zwlr_virtual_pointer_manager_v1_destroy);
    if (hands && m_seat)
        m_hand.reset(
            zwlr_virtual_pointer_manager_v1_create_virtual_pointer(hands.get(), m_seat.get()));

    for (const WaylandConnection::Global &global : connection.globals())
        add(global);
    connect(&connection, &WaylandConnection::globalAdded, this, &PointerCatcher::add);
    connect(&connection, &WaylandConnection::globalRemoved, this, [this](quint32 number) {
        std::erase_if(m_sheets, [number](const auto &sheet) { return sheet->number() == number; });
    });
}

PointerCatcher::~PointerCatcher() = default;

void PointerCatcher::add(const WaylandConnection::Global &global)
{
    if (global.interface == wl_output_interface.name)
        m_sheets.push_back(std::make_unique<Sheet>(*this, global));
}

void PointerCatcher::getPointer()
{
    if (m_pointer)
        return;
    m_pointer.reset(wl_seat_get_pointer(m_seat.get()));
    wl_pointer_add_listener(m_pointer.get(), &pointerListener, this);
}

std::shared_ptr<void> PointerCatcher::spread()
{
    if (auto watch = m_watch.lock())
        return watch;
    m_isFound = false;
    if (!m_pixel || !m_viewporter || !m_shell || !m_compositor)
        return {};
    for (const auto &sheet : m_sheets)
        sheet->show();
    m_connection.flush();
    std::shared_ptr<void> watch(this, [self = QPointer(this)](void *) {
        if (!self)
            return;
        for (const auto &sheet : self->m_sheets)
            sheet->hide();
        self->m_connection.flush();
    });
    m_watch = watch;
    return watch;
}

void PointerCatcher::leaveOpen(const QString &output, const QRegion &region)
{
    for (const auto &sheet : m_sheets) {
        if (sheet->name() == output)
            sheet->leaveOpen(region);
    }
    m_connection.flush();
}

void PointerCatcher::enter(wl_surface *surface, QPointF place)
{
    for (const auto &sheet : m_sheets) {
        if (!m_isFound && sheet->isOf(surface)) {
            m_isFound = true;
            Q_EMIT found(sheet->name(), place);
        }
    }
}

/// sway 1.10 does not say where the pointer is as long as it rests.
void PointerCatcher::nudge()
{
    if (!m_hand || m_isFound)
        return;
    zwlr_virtual_pointer_v1_motion(m_hand.get(), 0, 0, 0);
    zwlr_virtual_pointer_v1_frame(m_hand.get());
}

}
