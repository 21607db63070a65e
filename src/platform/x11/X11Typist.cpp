// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/x11/X11Typist.h"

#include "base/KeyCodes.h"
#include "platform/freedesktop/KeySymbols.h"
#include "platform/freedesktop/Terminals.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/X11SpareKeys.h"
#include "platform/x11/X11WindowPing.h"

#include <QThread>

#include <xkbcommon/xkbcommon-keysyms.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace Tessel {

namespace {

/// As many keys as a program is sent before it is waited for.
constexpr qsizetype maxAtOnce = 200;
constexpr auto patience = 2s;
/// For programs that cannot be asked whether they have looked a lent key up.
constexpr unsigned long blindWaitMs = 150;

std::optional<quint8> keyAtPlaceOf(char32_t letter)
{
    for (qint64 code = 0; code < 128; ++code) {
        const auto key = KeyCodes::scanCodeFromVirtual(code);
        const auto character = KeyCodes::ansiCharacter(code);
        if (key && character && QChar::toUpper(letter) == static_cast<uchar>(*character))
            return static_cast<quint8>(*key);
    }
    return {};
}

/// The shortcuts for cut, copy and paste without letters.
struct EditingKey
{
    char32_t letter;
    quint32 symbol;
    ShortcutModifiers modifiers;
};
constexpr EditingKey editingKeys[] = {
    { U'x', XKB_KEY_Delete, { .shift = true } },
    { U'c', XKB_KEY_Insert, { .control = true } },
    { U'v', XKB_KEY_Insert, { .shift = true } },
};

}

X11Typist::X11Typist(X11Connection &connection, const X11KeyLayout &layout,
                     const FrontApplication &front)
    : m_connection(connection)
    , m_layout(layout)
    , m_front(front)
    , m_window(static_cast<quint32>(front.window))
    , m_keys(connection)
{
    m_keys.liftHeldModifiers();
}

Result<void> X11Typist::type(const QString &text)
{
    const QList<quint32> symbols = KeySymbols::ofText(text);
    QHash<quint32, std::optional<X11KeyLayout::Stroke>> strokes;
    for (const quint32 symbol : symbols) {
        if (!strokes.contains(symbol))
            strokes.insert(symbol, m_layout.stroke(symbol));
    }
    X11SpareKeys spare(m_connection, m_layout.unusedKeys());
    for (qsizetype begin = 0, end = 0; begin < symbols.size(); begin = end) {
        QList<quint32> lacking;
        for (; end < symbols.size() && end - begin < maxAtOnce; ++end) {
            if (strokes[symbols[end]] || lacking.contains(symbols[end]))
                continue;
            if (lacking.size() == spare.count())
                break;
            lacking += symbols[end];
        }
        if (end == begin)
            return Failure {
                u"The keyboard layout lacks characters of the text and has no key to spare."_s
            };
        if (!lacking.isEmpty())
            spare.lend(lacking);
        for (const quint32 symbol : symbols.mid(begin, end - begin))
            press(strokes[symbol].value_or(
                X11KeyLayout::Stroke { spare.keyFor(symbol).value_or(0) }));
        settle(lacking.size());
    }
    return {};
}

void X11Typist::press(X11KeyLayout::Stroke stroke)
{
    QList<quint8> keys = modifierKeys({ .shift = stroke.shift });
    keys += stroke.key;
    m_keys.press(keys);
}

/// Letters have the key that gives them, with or without Caps Lock, and in a Cyrillic layout with a
/// Latin one beside it the key of the latter. Anything else is looked for where it is typed.
std::optional<X11KeyLayout::Stroke> X11Typist::strokeFor(char32_t character) const
{
    const auto plainKey = [this](char32_t c) -> std::optional<X11KeyLayout::Stroke> {
        const auto key = m_layout.key(KeySymbols::ofCharacter(c));
        return key ? std::optional(X11KeyLayout::Stroke { *key }) : std::nullopt;
    };
    if (!QChar::isLetter(character)) {
        const auto typed = m_layout.stroke(KeySymbols::ofCharacter(character));
        return typed ? typed : plainKey(character);
    }
    auto stroke = plainKey(QChar::toLower(character));
    if (!stroke) {
        if (const auto key = keyAtPlaceOf(character))
            stroke = X11KeyLayout::Stroke { *key };
    }
    if (stroke)
        stroke->shift = QChar::isUpper(character);
    return stroke;
}

Result<void> X11Typist::shortcut(char32_t character, ShortcutModifiers modifiers)
{
    const bool hasLetter
        = m_layout.key(KeySymbols::ofCharacter(QChar::toLower(character))).has_value();
    if (modifiers == ShortcutModifiers { .command = true } && !hasLetter && !m_front.isTerminal) {
        // Toolkits that look for the letter do not find it at its place (tried: GTK 3 and Qt 5).
        for (const EditingKey &editing : editingKeys) {
            const auto key = m_layout.key(editing.symbol);
            if (editing.letter == character && key)
                return shortcut(*key, editing.modifiers);
        }
    }
    const auto stroke = strokeFor(character);
    if (!stroke)
        return Failure { u"No key of the keyboard layout gives “%1”."_s.arg(
            QString::fromUcs4(&character, 1)) };
    modifiers.shift |= stroke->shift;
    return shortcut(stroke->key, modifiers);
}

Result<void> X11Typist::shortcut(quint8 key, ShortcutModifiers modifiers)
{
    const auto held = Terminals::shortcutIn(
        m_front,
        m_layout.key(XKB_KEY_c) == key ? Terminals::ShortcutKey::c : Terminals::ShortcutKey::other,
        modifiers);
    if (!held)
        return held.error();
    m_keys.press(modifierKeys(*held) + QList<quint8> { key });
    settle(0);
    return {};
}

QList<quint8> X11Typist::modifierKeys(ShortcutModifiers modifiers) const
{
    QList<quint8> keys;
    if (modifiers.command || modifiers.control)
        keys += m_layout.control();
    if (modifiers.option)
        keys += m_layout.alt();
    if (modifiers.shift)
        keys += m_layout.shift();
    return keys;
}

void X11Typist::settle(qsizetype lentKeys)
{
    if (m_window && X11WindowPing::isAnswered(m_connection, m_window))
        awaitEventsHandled(m_connection, m_window, patience);
    else if (lentKeys > 0)
        QThread::msleep(blindWaitMs);
}

}
