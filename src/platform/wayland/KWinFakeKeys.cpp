// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/wayland/KWinFakeKeys.h"

#include "base/KeyCodes.h"

#include <algorithm>
#include <kwin-fake-input-client.h>
#include <kwin-keystate-client.h>
#include <linux/input-event-codes.h>
#include <wayland-client.h>

using namespace std::chrono_literals;

namespace Tessel {

namespace {

constexpr quint32 evdevOffset = 8; ///< of scan codes
constexpr quint32 keysSince = 4; ///< version of the fake input
constexpr quint32 modifiersSince = 5; ///< version of the key states
constexpr quint32 firstModifier = 3; ///< of the key states' keys; those before are locks

struct Modifier
{
    qint64 bit;
    quint32 left;
    quint32 right;
};
constexpr Modifier modifierTable[] = {
    { KeyCodes::shift, KEY_LEFTSHIFT, KEY_RIGHTSHIFT },
    { KeyCodes::control, KEY_LEFTCTRL, KEY_RIGHTCTRL },
    { KeyCodes::option, KEY_LEFTALT, KEY_RIGHTALT },
    { KeyCodes::command, KEY_LEFTMETA, KEY_RIGHTMETA },
};

bool offersVersion(const WaylandConnection &connection, const char *interface, quint32 version)
{
    const auto &globals = connection.globals();
    return std::any_of(globals.cbegin(), globals.cend(), [=](const auto &global) {
        return global.interface == interface && global.version >= version;
    });
}

bool tellsModifiers(const WaylandConnection &connection)
{
    return offersVersion(connection, org_kde_kwin_keystate_interface.name, modifiersSince);
}

}

const wl_callback_listener KWinFakeKeys::handledListener = {
    [](void *self, wl_callback *, quint32) {
        auto *keys = static_cast<KWinFakeKeys *>(self);
        keys->m_handledCallback.reset();
        auto handled = std::exchange(keys->m_handled, {});
        handled->finish();
    },
};

const org_kde_kwin_keystate_listener KWinFakeKeys::stateListener = {
    [](void *self, org_kde_kwin_keystate *, quint32 key, quint32 state) {
        static_cast<KWinFakeKeys *>(self)->setState(key, state);
    },
};

bool KWinFakeKeys::isOffered(const WaylandConnection &connection)
{
    return offersVersion(connection, org_kde_kwin_fake_input_interface.name, keysSince);
}

KWinFakeKeys::KWinFakeKeys(WaylandConnection &connection)
    : m_connection(connection)
    , m_input(
          connection.bind<org_kde_kwin_fake_input>(org_kde_kwin_fake_input_interface, keysSince),
          org_kde_kwin_fake_input_destroy)
    , m_handledCallback(nullptr, wl_callback_destroy)
    , m_modifierState(nullptr, org_kde_kwin_keystate_destroy)
{
    org_kde_kwin_fake_input_authenticate(m_input.get(), "Tessel", "Copies the selected text");
    m_patience.setSingleShot(true);
    m_patience.setInterval(1s);
    QObject::connect(&m_patience, &QTimer::timeout, &m_patience, [this] { endWaiting(); });
}

KWinFakeKeys::~KWinFakeKeys() = default;

QFuture<void> KWinFakeKeys::whenReady()
{
    if (!tellsModifiers(m_connection))
        return QtFuture::makeReadyFuture(); // press() lifts them
    if (!m_ready) {
        m_ready.emplace().start();
        m_held = 0;
        m_modifierState.reset(m_connection.bind<org_kde_kwin_keystate>(
            org_kde_kwin_keystate_interface, modifiersSince));
        org_kde_kwin_keystate_add_listener(m_modifierState.get(), &stateListener, this);
        org_kde_kwin_keystate_fetch_states(m_modifierState.get());
        m_patience.start();
    }
    QFuture<void> ready = m_ready->future();
    whenHandled().then(&m_patience, [this] {
        if (!m_held)
            endWaiting();
    });
    return ready;
}

void KWinFakeKeys::setState(quint32 key, quint32 state)
{
    if (key < firstModifier)
        return;
    const quint32 before = m_held;
    m_held = state ? m_held | 1U << key : m_held & ~(1U << key);
    if (before && !m_held)
        endWaiting();
}

void KWinFakeKeys::endWaiting()
{
    m_patience.stop();
    m_modifierState.reset();
    if (auto ready = std::exchange(m_ready, {}))
        ready->finish();
}

void KWinFakeKeys::press(quint32 scanCode, qint64 modifiers)
{
    // Before KWin 6 that lifts those of the user; not pressed again, as on X11: nobody knows
    // whether they are still held.
    for (const Modifier &modifier : modifierTable) {
        send(modifier.left, false);
        send(modifier.right, false);
    }
    for (const Modifier &modifier : modifierTable) {
        if (modifiers & modifier.bit)
            send(modifier.left, true);
    }
    send(scanCode - evdevOffset, true);
    send(scanCode - evdevOffset, false);
    for (const Modifier &modifier : modifierTable) {
        if (modifiers & modifier.bit)
            send(modifier.left, false);
    }
    m_connection.flush();
}

QFuture<void> KWinFakeKeys::whenHandled()
{
    if (!m_handled)
        m_handled.emplace().start();
    // A later callback answers for those who wait for an earlier one, too.
    m_handledCallback.reset(wl_display_sync(m_connection.display()));
    wl_callback_add_listener(m_handledCallback.get(), &handledListener, this);
    m_connection.flush();
    return m_handled->future();
}

void KWinFakeKeys::send(quint32 evdevCode, bool isDown)
{
    org_kde_kwin_fake_input_keyboard_key(m_input.get(), evdevCode,
                                         isDown ? WL_KEYBOARD_KEY_STATE_PRESSED
                                                : WL_KEYBOARD_KEY_STATE_RELEASED);
}

}
