// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/gnome/CompositorKeymap.h"

#include "base/Descriptor.h"
#include "platform/wayland/WaylandConnection.h"

#include <sys/mman.h>
#include <wayland-client.h>

namespace Tessel {

namespace {

/// Ends with a null, which is counted.
QByteArray contents(const Descriptor &file, std::size_t size)
{
    void *bytes = mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file.number(), 0);
    if (bytes == MAP_FAILED)
        return {};
    QByteArray text(static_cast<const char *>(bytes), qsizetype(size) - 1);
    munmap(bytes, size);
    return text;
}

const wl_keyboard_listener keymapListener = {
    .keymap =
        [](void *text, wl_keyboard *, quint32 format, int file, quint32 size) {
            const Descriptor descriptor(file);
            if (format == WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1 && size > 0)
                *static_cast<QByteArray *>(text) = contents(descriptor, size);
        },
    .enter = [](void *, wl_keyboard *, quint32, wl_surface *, wl_array *) {},
    .leave = [](void *, wl_keyboard *, quint32, wl_surface *) {},
    .key = [](void *, wl_keyboard *, quint32, quint32, quint32, quint32) {},
    .modifiers = [](void *, wl_keyboard *, quint32, quint32, quint32, quint32, quint32) {},
    .repeat_info = [](void *, wl_keyboard *, int, int) {},
};

}

std::optional<WaylandKeymap> compositorKeymap()
{
    const auto connection = WaylandConnection::open();
    if (!connection || !(*connection)->seat())
        return {};
    const WaylandPtr<wl_keyboard> keyboard(wl_seat_get_keyboard((*connection)->seat()),
                                           wl_keyboard_destroy);
    QByteArray text;
    wl_keyboard_add_listener(keyboard.get(), &keymapListener, &text);
    (*connection)->roundTrip();
    return text.isEmpty() ? std::nullopt : WaylandKeymap::read(text);
}

}
