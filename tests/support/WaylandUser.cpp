// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "support/WaylandUser.h"

#include "platform/wayland/WaylandConnection.h"

#include <chrono>

#include <linux/input-event-codes.h>
#include <sys/mman.h>
#include <unistd.h>
#include <virtual-keyboard-client.h>
#include <wayland-client.h>
#include <wlr-virtual-pointer-client.h>
#include <xkbcommon/xkbcommon.h>

namespace Tessel::Desktop {

namespace {

quint32 now()
{
    using namespace std::chrono;
    return static_cast<quint32>(
        duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count());
}

// The real modifiers of X, in which all layouts agree.
quint32 modifierOf(quint32 key)
{
    switch (key) {
    case KEY_LEFTSHIFT:
        return 1;
    case KEY_LEFTCTRL:
        return 4;
    case KEY_LEFTALT:
        return 8;
    case KEY_LEFTMETA:
        return 64;
    default:
        return 0;
    }
}

std::unique_ptr<WaylandConnection> connectionTo(const QString &socket)
{
    const QByteArray own = qgetenv("WAYLAND_DISPLAY");
    qputenv("WAYLAND_DISPLAY", socket.toLocal8Bit());
    auto connection = WaylandConnection::open();
    own.isNull() ? qunsetenv("WAYLAND_DISPLAY") : qputenv("WAYLAND_DISPLAY", own);
    return connection ? *std::move(connection) : nullptr;
}

void setKeymap(zwp_virtual_keyboard_v1 *keyboard)
{
    const std::unique_ptr<xkb_context, decltype(&xkb_context_unref)> context(
        xkb_context_new(XKB_CONTEXT_NO_FLAGS), xkb_context_unref);
    const std::unique_ptr<xkb_keymap, decltype(&xkb_keymap_unref)> keymap(
        xkb_keymap_new_from_names(context.get(), nullptr, XKB_KEYMAP_COMPILE_NO_FLAGS),
        xkb_keymap_unref);
    const std::unique_ptr<char, decltype(&std::free)> text(
        xkb_keymap_get_as_string(keymap.get(), XKB_KEYMAP_FORMAT_TEXT_V1), std::free);
    const size_t size = std::strlen(text.get()) + 1;
    const int file = ::memfd_create("keymap", MFD_CLOEXEC);
    if (::write(file, text.get(), size) == static_cast<ssize_t>(size))
        zwp_virtual_keyboard_v1_keymap(keyboard, WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1, file,
                                       static_cast<quint32>(size));
    ::close(file);
}

}

class WaylandUser::Private final
{
public:
    explicit Private(const QString &socket);
    void setKey(quint32 key, bool isDown);

    std::unique_ptr<WaylandConnection> connection; // null without a compositor
    WaylandPtr<zwp_virtual_keyboard_v1> keyboard { nullptr, zwp_virtual_keyboard_v1_destroy };
    WaylandPtr<zwlr_virtual_pointer_v1> pointer { nullptr, zwlr_virtual_pointer_v1_destroy };
    QSize size;

private:
    quint32 m_modifiers = 0;
};

WaylandUser::Private::Private(const QString &socket)
    : connection(connectionTo(socket))
{
    if (!connection)
        return;
    const WaylandPtr<zwp_virtual_keyboard_manager_v1> keyboards(
        connection->bind<zwp_virtual_keyboard_manager_v1>(zwp_virtual_keyboard_manager_v1_interface,
                                                          1),
        zwp_virtual_keyboard_manager_v1_destroy);
    const WaylandPtr<zwlr_virtual_pointer_manager_v1> pointers(
        connection->bind<zwlr_virtual_pointer_manager_v1>(zwlr_virtual_pointer_manager_v1_interface,
                                                          2),
        zwlr_virtual_pointer_manager_v1_destroy);
    if (!keyboards || !pointers)
        return;
    keyboard.reset(zwp_virtual_keyboard_manager_v1_create_virtual_keyboard(keyboards.get(),
                                                                           connection->seat()));
    pointer.reset(
        zwlr_virtual_pointer_manager_v1_create_virtual_pointer(pointers.get(), connection->seat()));
    setKeymap(keyboard.get());
    connection->roundTrip();
}

void WaylandUser::Private::setKey(quint32 key, bool isDown)
{
    m_modifiers = isDown ? m_modifiers | modifierOf(key) : m_modifiers & ~modifierOf(key);
    zwp_virtual_keyboard_v1_key(keyboard.get(), now(), key, isDown);
    if (modifierOf(key))
        zwp_virtual_keyboard_v1_modifiers(keyboard.get(), m_modifiers, 0, 0, 0);
}

WaylandUser::WaylandUser(const QString &socket, const QSize &size)
    : d(std::make_unique<Private>(socket))
{
    d->size = size;
}

WaylandUser::~WaylandUser() = default;

bool WaylandUser::isConnected() const
{
    return d->keyboard && d->pointer;
}

void WaylandUser::setKey(quint32 key, bool isDown)
{
    d->setKey(key, isDown);
}

void WaylandUser::setLeftButton(bool isDown)
{
    zwlr_virtual_pointer_v1_button(d->pointer.get(), now(), BTN_LEFT, isDown);
    zwlr_virtual_pointer_v1_frame(d->pointer.get());
}

void WaylandUser::sync()
{
    d->connection->roundTrip();
}

void WaylandUser::movePointer(const QPoint &position)
{
    // Where a pointer enters an output of the nested compositor does not count, only where it
    // moves.
    for (const int x : { position.x() ^ 1, position.x() }) {
        zwlr_virtual_pointer_v1_motion_absolute(
            d->pointer.get(), now(), static_cast<quint32>(x), static_cast<quint32>(position.y()),
            static_cast<quint32>(d->size.width()), static_cast<quint32>(d->size.height()));
        zwlr_virtual_pointer_v1_frame(d->pointer.get());
    }
    d->connection->roundTrip();
}

void WaylandUser::scroll(int steps)
{
    constexpr int wheelStep = 15;
    for (int step = 0; step < std::abs(steps); ++step) {
        const int sign = steps > 0 ? 1 : -1;
        zwlr_virtual_pointer_v1_axis_source(d->pointer.get(), WL_POINTER_AXIS_SOURCE_WHEEL);
        zwlr_virtual_pointer_v1_axis_discrete(d->pointer.get(), now(),
                                              WL_POINTER_AXIS_VERTICAL_SCROLL,
                                              wl_fixed_from_int(sign * wheelStep), sign);
        zwlr_virtual_pointer_v1_frame(d->pointer.get());
    }
    d->connection->roundTrip();
}

}
