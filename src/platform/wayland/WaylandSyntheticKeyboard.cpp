// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/wayland/WaylandSyntheticKeyboard.h"

#include "base/KeyCodes.h"
#include "platform/freedesktop/KeySymbols.h"
#include "platform/freedesktop/Terminals.h"

#include <QThread>

#include <algorithm>
#include <wayland-client.h>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

/// As many keys as a program is sent before it gets time for them: the compositor cuts programs off
/// that leave too much unread. All of them could be lacking in the keymap.
constexpr qsizetype maxAtOnce = WaylandKeymap::maxFurther;
constexpr unsigned long pauseMs = 100;
/// For programs on Xwayland, which look a key up in the keymap of the moment when they get to it.
constexpr unsigned long lookUpMs = 150;
/// For programs to learn that the seat has got a keyboard, and to handle its keys before they learn
/// that it has lost it: they drop what is left then.
constexpr unsigned long seatChangeMs = 100;

Failure notAllowed()
{
    return { u"The compositor lets no program press keys (virtual-keyboard is missing)."_s };
}

Failure noSuchKey(char32_t character)
{
    return { u"No key of a keyboard gives “%1”."_s.arg(QString::fromUcs4(&character, 1)) };
}

const wl_seat_listener capabilityListener = {
    [](void *capabilities, wl_seat *, quint32 present) {
        *static_cast<quint32 *>(capabilities) = present;
    },
    [](void *, wl_seat *, const char *) {},
};

bool hasKeyboard(WaylandConnection &connection)
{
    const WaylandPtr<wl_seat> seat(connection.bind<wl_seat>(wl_seat_interface, 1), wl_seat_destroy);
    quint32 capabilities = 0;
    wl_seat_add_listener(seat.get(), &capabilityListener, &capabilities);
    connection.roundTrip();
    return capabilities & WL_SEAT_CAPABILITY_KEYBOARD;
}

bool isLent(const WaylandKeymap::Stroke &stroke)
{
    return stroke.group > 0;
}

}

WaylandSyntheticKeyboard::WaylandSyntheticKeyboard(std::unique_ptr<WaylandConnection> connection,
                                                   WaylandKeymap keymap)
    : m_connection(std::move(connection))
    , m_keymap(std::move(keymap))
    , m_isOnlyKeyboard(!hasKeyboard(*m_connection))
{
    m_keyboard.setKeymap(m_keymap);
    if (m_isOnlyKeyboard)
        QThread::msleep(seatChangeMs);
}

WaylandSyntheticKeyboard::~WaylandSyntheticKeyboard()
{
    if (m_isOnlyKeyboard)
        QThread::msleep(seatChangeMs);
}

bool WaylandSyntheticKeyboard::isOffered()
{
    const auto connection = WaylandConnection::open();
    return connection && WaylandKeyboard::isOffered(**connection);
}

Result<std::unique_ptr<SyntheticKeyboard>> WaylandSyntheticKeyboard::connect()
{
    auto connection = WaylandConnection::open();
    if (!connection)
        return connection.error();
    auto keymap = WaylandKeymap::make();
    if (!keymap || !WaylandKeyboard::isOffered(**connection))
        return notAllowed();
    return std::unique_ptr<SyntheticKeyboard>(
        new WaylandSyntheticKeyboard(*std::move(connection), *std::move(keymap)));
}

Result<void> WaylandSyntheticKeyboard::type(const QString &text)
{
    const QList<quint32> symbols = KeySymbols::ofText(text);
    for (qsizetype begin = 0; begin < symbols.size(); begin += maxAtOnce) {
        if (begin > 0)
            QThread::msleep(pauseMs);
        const QList<quint32> portion = symbols.mid(begin, maxAtOnce);
        if (!lend(portion))
            return notAllowed();
        QList<WaylandKeymap::Stroke> strokes;
        for (const quint32 symbol : portion) {
            if (const auto stroke = m_keymap.stroke(symbol))
                strokes += *stroke;
        }
        m_keyboard.press(strokes, 0);
        if (auto sent = settle(); !sent)
            return sent;
        if (std::any_of(strokes.cbegin(), strokes.cend(), isLent))
            QThread::msleep(lookUpMs);
    }
    return {};
}

/// Has keys for these symbols, at most WaylandKeymap::maxFurther.
bool WaylandSyntheticKeyboard::lend(const QList<quint32> &symbols)
{
    QList<quint32> further;
    bool isChange = false;
    for (const quint32 symbol : symbols) {
        const auto stroke = m_keymap.stroke(symbol);
        isChange |= !stroke;
        if ((!stroke || isLent(*stroke)) && !further.contains(symbol))
            further += symbol;
    }
    if (!isChange)
        return true;
    auto keymap = WaylandKeymap::make(further);
    if (!keymap)
        return false;
    m_keymap = *std::move(keymap);
    m_keyboard.setKeymap(m_keymap);
    return true;
}

Result<void> WaylandSyntheticKeyboard::pressCharacter(char32_t character,
                                                      ShortcutModifiers modifiers)
{
    const quint32 symbol = KeySymbols::ofCharacter(character);
    if (!symbol || !lend({ symbol }))
        return noSuchKey(character);
    const auto stroke = m_keymap.stroke(symbol);
    return stroke ? shortcut(*stroke, modifiers) : noSuchKey(character);
}

Result<void> WaylandSyntheticKeyboard::pressKey(qint64 keyCode, ShortcutModifiers modifiers)
{
    const auto key = KeyCodes::scanCodeFromVirtual(keyCode);
    return key ? shortcut({ .scanCode = *key }, modifiers)
               : Failure { u"There is no key with the code %1."_s.arg(keyCode) };
}

Result<void> WaylandSyntheticKeyboard::shortcut(const WaylandKeymap::Stroke &stroke,
                                                const ShortcutModifiers &modifiers)
{
    const bool isC = stroke.scanCode == KeyCodes::scanCodeFromVirtual(KeyCodes::keyC);
    const auto held = Terminals::shortcutIn(
        m_windows.front(), isC ? Terminals::ShortcutKey::c : Terminals::ShortcutKey::other,
        modifiers);
    if (!held)
        return held.error();
    m_keyboard.press({ stroke }, bitsOf(*held));
    return settle();
}

void WaylandSyntheticKeyboard::awaitKeysSeen(std::chrono::milliseconds)
{
    m_connection->roundTrip();
}

/// The compositor has sent the keys on; more is not to be learned.
Result<void> WaylandSyntheticKeyboard::settle()
{
    if (m_connection->roundTrip())
        return {};
    return Failure { u"The compositor has ended the connection."_s };
}

}
