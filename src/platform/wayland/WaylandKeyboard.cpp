// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/wayland/WaylandKeyboard.h"

#include "base/Descriptor.h"
#include "base/KeyCodes.h"

#include <chrono>
#include <linux/input-event-codes.h>
#include <sys/mman.h>
#include <virtual-keyboard-client.h>
#include <wayland-client.h>

namespace Tessel {

namespace {

constexpr quint32 evdevOffset = 8; ///< of scan codes

/// A modifier's bit here, its mask in a keymap, where the eight real ones have fixed places, and
/// its key.
struct Modifier
{
    qint64 bit;
    quint32 mask;
    quint32 evdevCode;
};
constexpr Modifier modifierTable[] = {
    { KeyCodes::shift, 1U << 0, KEY_LEFTSHIFT },
    { KeyCodes::control, 1U << 2, KEY_LEFTCTRL },
    { KeyCodes::option, 1U << 3, KEY_LEFTALT },
    { KeyCodes::command, 1U << 6, KEY_LEFTMETA },
};

quint32 milliseconds()
{
    using namespace std::chrono;
    return static_cast<quint32>(
        duration_cast<std::chrono::milliseconds>(steady_clock::now().time_since_epoch()).count());
}

}

bool WaylandKeyboard::isOffered(const WaylandConnection &connection)
{
    return connection.seat() && connection.offers(zwp_virtual_keyboard_manager_v1_interface.name);
}

WaylandKeyboard::WaylandKeyboard(WaylandConnection &connection)
    : m_connection(connection)
    , m_manager(connection.bind<zwp_virtual_keyboard_manager_v1>(
                    zwp_virtual_keyboard_manager_v1_interface, 1),
                zwp_virtual_keyboard_manager_v1_destroy)
    , m_keyboard(nullptr, zwp_virtual_keyboard_v1_destroy)
{
}

WaylandKeyboard::~WaylandKeyboard() = default;

void WaylandKeyboard::prepare()
{
    if (m_hasKeymap)
        return;
    if (const auto keymap = WaylandKeymap::make())
        setKeymap(*keymap);
}

void WaylandKeyboard::setKeymap(const WaylandKeymap &keymap)
{
    if (!m_manager || !m_connection.seat())
        return;
    if (!m_keyboard)
        m_keyboard.reset(zwp_virtual_keyboard_manager_v1_create_virtual_keyboard(
            m_manager.get(), m_connection.seat()));
    const QByteArray text = keymap.text();
    const auto size = static_cast<quint32>(text.size() + 1); // with the zero byte
    const Descriptor file(memfd_create("keymap", MFD_CLOEXEC));
    if (write(file.number(), text.constData(), size) != size)
        return;
    zwp_virtual_keyboard_v1_keymap(m_keyboard.get(), WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1,
                                   file.number(), size);
    m_connection.flush();
    m_hasKeymap = true;
}

void WaylandKeyboard::press(quint32 scanCode, qint64 modifiers)
{
    press({ { .scanCode = scanCode } }, modifiers);
}

void WaylandKeyboard::press(const QList<WaylandKeymap::Stroke> &strokes, qint64 modifiers)
{
    prepare();
    if (!m_hasKeymap)
        return; // a key would end the connection
    for (const WaylandKeymap::Stroke &stroke : strokes) {
        hold(stroke.shift ? modifiers | KeyCodes::shift : modifiers, stroke.group);
        send(stroke.scanCode - evdevOffset, WL_KEYBOARD_KEY_STATE_PRESSED);
        send(stroke.scanCode - evdevOffset, WL_KEYBOARD_KEY_STATE_RELEASED);
    }
    hold(0, 0);
    m_connection.flush();
}

/// Toolkits go by the state; programs that hand keys on to another computer, by the keys.
void WaylandKeyboard::hold(qint64 modifiers, quint32 group)
{
    if (modifiers == m_held && group == m_group)
        return;
    quint32 mask = 0;
    for (const Modifier &modifier : modifierTable) {
        const bool isHeld = modifiers & modifier.bit;
        if (isHeld)
            mask |= modifier.mask;
        if (isHeld != bool(m_held & modifier.bit))
            send(modifier.evdevCode,
                 isHeld ? WL_KEYBOARD_KEY_STATE_PRESSED : WL_KEYBOARD_KEY_STATE_RELEASED);
    }
    zwp_virtual_keyboard_v1_modifiers(m_keyboard.get(), mask, 0, 0, group);
    m_held = modifiers;
    m_group = group;
}

void WaylandKeyboard::send(quint32 evdevCode, quint32 state)
{
    zwp_virtual_keyboard_v1_key(m_keyboard.get(), milliseconds(), evdevCode, state);
}

}
