// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/x11/X11TriggerKey.h"

#include "base/KeyCodes.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/X11FakeKeys.h"
#include "platform/x11/X11Modifiers.h"

#include <xcb/xcb.h>

namespace Tessel {

namespace {

/// What does not count for the trigger: Caps Lock, Num Lock, and where layouts put Scroll Lock,
/// Hyper and AltGr.
constexpr quint8 indifferent = XCB_MOD_MASK_LOCK | XCB_MOD_MASK_2 | XCB_MOD_MASK_3 | XCB_MOD_MASK_5;

QList<X11Stroke> strokesOf(const KeyChord &chord)
{
    QList<X11Stroke> strokes;
    const quint8 modifiers = X11Modifiers::mask(chord.modifiers);
    for (quint32 key = 8; key <= 255; ++key) {
        if (KeyCodes::virtualFromScanCode(key) == chord.keyCode)
            strokes += inAllLockStates({ static_cast<quint8>(key), modifiers }, indifferent);
    }
    return strokes;
}

}

X11TriggerKey::X11TriggerKey(X11Connection &connection, X11KeyGrabs &grabs,
                             std::function<void()> pressed)
    : m_connection(connection)
    , m_grabs(grabs)
    , m_pressed(std::move(pressed))
{
}

void X11TriggerKey::set(const KeyChord &chord)
{
    if (m_chord == chord)
        return;
    m_chord = chord;
    grab();
}

void X11TriggerKey::setWatching(bool isWatching)
{
    if (std::exchange(m_isWatching, isWatching) != isWatching)
        grab();
}

void X11TriggerKey::retry()
{
    grab();
}

void X11TriggerKey::grab()
{
    m_hold.reset();
    m_hold = m_grabs.take(
        strokesOf(m_chord),
        [this](const X11Stroke &stroke, X11KeyGrabs::Change change) { handle(stroke, change); });
    m_isShared = !m_hold || !m_hold->isComplete();
    if (m_isShared || !m_isWatching)
        m_hold.reset(); // not in some states of the locks only
}

void X11TriggerKey::handle(const X11Stroke &stroke, X11KeyGrabs::Change change)
{
    if (change == X11KeyGrabs::Change::release)
        return;
    m_grabs.giveKeyboardBack();
    if (change == X11KeyGrabs::Change::repeat)
        return;
    m_keptKey = stroke.key;
    m_pressed();
}

void X11TriggerKey::passOn()
{
    const quint8 key = std::exchange(m_keptKey, 0);
    if (!key || !m_connection.xtest().present)
        return;
    m_hold.reset();
    X11FakeKeys keyboard(m_connection);
    keyboard.lift({ key }); // pressing what is down already does nothing
    keyboard.press(X11Modifiers::keys(m_connection, X11Modifiers::mask(m_chord.modifiers))
                   + QList<quint8> { key });
    grab();
}

}
