// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/wayland/KWinSyntheticKeyboard.h"

#include "base/KeyCodes.h"
#include "platform/freedesktop/KeySymbols.h"
#include "platform/freedesktop/Terminals.h"
#include "platform/wayland/WaylandKeymap.h"

#include <QDeadlineTimer>
#include <QThread>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

constexpr qint64 maxWait = 1000; ///< milliseconds, for modifiers that the user holds
constexpr unsigned long stepMs = 10;

}

bool KWinSyntheticKeyboard::isOffered()
{
    const auto connection = WaylandConnection::open();
    return connection && (*connection)->offers("org_kde_plasma_shell");
}

Result<std::unique_ptr<SyntheticKeyboard>> KWinSyntheticKeyboard::connect()
{
    auto connection = WaylandConnection::open();
    if (!connection)
        return connection.error();
    if (!KWinFakeKeys::isOffered(**connection))
        return Failure { u"KWin lets only programs press keys that are installed."_s };
    return std::unique_ptr<SyntheticKeyboard>(new KWinSyntheticKeyboard(*std::move(connection)));
}

KWinSyntheticKeyboard::KWinSyntheticKeyboard(std::unique_ptr<WaylandConnection> connection)
    : m_connection(std::move(connection))
{
}

Result<void> KWinSyntheticKeyboard::type(const QString &)
{
    return Failure { u"KWin lets programs press shortcuts, but not type: put the text on the "
                     "clipboard and paste it."_s };
}

Result<void> KWinSyntheticKeyboard::pressCharacter(char32_t character, ShortcutModifiers modifiers)
{
    const auto keymap = WaylandKeymap::make();
    const auto stroke = keymap ? keymap->stroke(KeySymbols::ofCharacter(character)) : std::nullopt;
    if (!stroke || stroke->group > 0)
        return Failure { u"No key of a keyboard gives “%1”."_s.arg(
            QString::fromUcs4(&character, 1)) };
    return shortcut(stroke->scanCode, modifiers, stroke->shift ? KeyCodes::shift : 0);
}

Result<void> KWinSyntheticKeyboard::pressKey(qint64 keyCode, ShortcutModifiers modifiers)
{
    const auto key = KeyCodes::scanCodeFromVirtual(keyCode);
    return key ? shortcut(*key, modifiers, 0)
               : Failure { u"There is no key with the code %1."_s.arg(keyCode) };
}

/// `further` modifiers are those of the character.
Result<void> KWinSyntheticKeyboard::shortcut(quint32 scanCode, const ShortcutModifiers &modifiers,
                                             qint64 further)
{
    const bool isC = scanCode == KeyCodes::scanCodeFromVirtual(KeyCodes::keyC);
    const auto held = Terminals::shortcutIn(
        m_windows.front(), isC ? Terminals::ShortcutKey::c : Terminals::ShortcutKey::other,
        modifiers);
    if (!held)
        return held.error();
    const QFuture<void> ready = m_keys.whenReady();
    const QDeadlineTimer deadline(maxWait);
    while (!ready.isFinished() && !deadline.hasExpired() && m_connection->roundTrip())
        QThread::msleep(stepMs);
    m_keys.press(scanCode, bitsOf(*held) | further);
    if (m_connection->roundTrip())
        return {};
    return Failure { u"The compositor has ended the connection."_s };
}

void KWinSyntheticKeyboard::awaitKeysSeen(std::chrono::milliseconds)
{
    m_connection->roundTrip();
}

}
