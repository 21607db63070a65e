// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/gnome/GnomeSyntheticKeyboard.h"

#include "base/KeyCodes.h"
#include "base/TextRules.h"
#include "platform/freedesktop/KeySymbols.h"
#include "platform/freedesktop/Terminals.h"
#include "platform/gnome/CompositorKeymap.h"
#include "platform/gnome/ShellCalls.h"
#include "platform/gnome/ShellInterface.h"
#include "platform/wayland/WaylandKeys.h"
#ifdef TESSEL_X11
#include "platform/x11/X11SyntheticKeyboard.h"
#endif

#include <QDeadlineTimer>
#include <QThread>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

/// What the input method gives at once goes into one message of Wayland, of 4 KiB.
constexpr qsizetype maxAtOnce = 1000;
/// For a text to go out, which the next one would replace.
constexpr unsigned long untilSentMs = 20;
/// For the program to handle keys: GTK takes a text from the input method before keys that came
/// earlier.
constexpr unsigned long untilSeenMs = 50;
constexpr qint64 maxWait = 1000; ///< milliseconds, for modifiers that the user holds
constexpr unsigned long stepMs = 10;
/// The compositor cuts programs off that leave too many keys unread.
constexpr qsizetype maxKeysAtOnce = 90;
constexpr unsigned long pauseMs = 100;

Failure noAnswer()
{
    return { u"GNOME Shell does not answer."_s };
}

Failure noSuchKey(char32_t character)
{
    return { u"No key of a keyboard gives “%1”."_s.arg(QString::fromUcs4(&character, 1)) };
}

bool isControl(QChar character)
{
    return character < u' ';
}

void awaitModifiers()
{
    const auto areHeld = [] {
        const auto reply = ShellCalls::call("HoldsModifiers");
        return reply && reply->value(0).toBool();
    };
    const QDeadlineTimer deadline(maxWait);
    while (!deadline.hasExpired() && areHeld())
        QThread::msleep(stepMs);
}

/// The number of characters from here on that one message can have; 0 before a control.
qsizetype portion(const QString &text, qsizetype begin)
{
    qsizetype end = begin;
    while (end < text.size() && end - begin < maxAtOnce && !isControl(text[end]))
        ++end;
    return end - begin - (end > begin && text[end - 1].isHighSurrogate() ? 1 : 0);
}

}

Result<std::unique_ptr<SyntheticKeyboard>> GnomeSyntheticKeyboard::connect()
{
    auto american = WaylandKeymap::make();
    if (!american)
        return Failure { u"Nothing describes keyboards here (xkb-data is missing)."_s };
    auto layouts = compositorKeymap();
    return std::unique_ptr<SyntheticKeyboard>(
        new GnomeSyntheticKeyboard(std::move(layouts).value_or(*american), *american));
}

GnomeSyntheticKeyboard::GnomeSyntheticKeyboard(WaylandKeymap layouts, WaylandKeymap american)
    : m_layouts(std::move(layouts))
    , m_american(std::move(american))
{
}

Result<void> GnomeSyntheticKeyboard::type(const QString &text)
{
    const QString normalized = withNormalizedLineEnds(text);
    qsizetype size = 0;
    for (qsizetype begin = 0; begin < normalized.size(); begin += size) {
        const qsizetype given = portion(normalized, begin);
        size = std::max<qsizetype>(given, 1);
        const auto reply = given ? ShellCalls::call("Type", { normalized.mid(begin, given) })
                                 : QVariantList { false, false };
        if (!reply)
            return noAnswer();
        const bool isTyped = reply->value(0).toBool();
        const bool isOnX11 = reply->value(1).toBool();
        if (isOnX11)
            return typeOnX11(normalized.mid(begin));
        if (isTyped)
            QThread::msleep(untilSentMs);
        else if (auto typed = typeByKeys(normalized.mid(begin, size)); !typed)
            return typed;
    }
    return {};
}

Result<void> GnomeSyntheticKeyboard::typeByKeys(const QString &text)
{
    // The shell adds the locale's layout as the last one, for shortcuts (keyboardManager.js).
    const quint32 inUse = std::max(1U, m_layouts.groups() - 1);
    QList<WaylandKeymap::Stroke> strokes;
    for (const quint32 symbol : KeySymbols::ofText(text)) {
        const auto stroke = m_layouts.commonStroke(symbol, inUse);
        if (!stroke)
            return Failure { u"The program in front takes no text that keyboards lack: put it on "
                             "the clipboard and paste it."_s };
        strokes += *stroke;
    }
    awaitModifiers();
    for (qsizetype i = 0; i < strokes.size(); ++i) {
        if (i % maxKeysAtOnce == maxKeysAtOnce - 1)
            QThread::msleep(pauseMs);
        const auto &stroke = strokes[i];
        if (auto pressed = press(stroke.scanCode, stroke.shift ? KeyCodes::shift : 0); !pressed)
            return pressed;
    }
    QThread::msleep(untilSeenMs);
    return {};
}

Result<void> GnomeSyntheticKeyboard::typeOnX11(const QString &text)
{
#ifdef TESSEL_X11
    if (!m_x11) {
        auto keyboard = X11SyntheticKeyboard::connect();
        if (!keyboard)
            return keyboard.error();
        m_x11 = *std::move(keyboard);
    }
    return m_x11->type(text);
#else
    return typeByKeys(text);
#endif
}

Result<void> GnomeSyntheticKeyboard::pressCharacter(char32_t character, ShortcutModifiers modifiers)
{
    const quint32 symbol = KeySymbols::ofCharacter(character);
    auto stroke = m_layouts.stroke(symbol);
    if (!stroke)
        stroke = m_american.stroke(symbol);
    if (!symbol || !stroke)
        return noSuchKey(character);
    return shortcut(stroke->scanCode, modifiers, stroke->shift ? KeyCodes::shift : 0);
}

Result<void> GnomeSyntheticKeyboard::pressKey(qint64 keyCode, ShortcutModifiers modifiers)
{
    const auto key = KeyCodes::scanCodeFromVirtual(keyCode);
    return key ? shortcut(*key, modifiers, 0)
               : Failure { u"There is no key with the code %1."_s.arg(keyCode) };
}

/// `further` modifiers are those of the character.
Result<void> GnomeSyntheticKeyboard::shortcut(quint32 scanCode, const ShortcutModifiers &modifiers,
                                              qint64 further)
{
    const auto c = m_layouts.stroke(KeySymbols::ofCharacter(U'c'));
    const bool isC = scanCode == (c ? c->scanCode : 0)
        || scanCode == KeyCodes::scanCodeFromVirtual(KeyCodes::keyC);
    const auto held = Terminals::shortcutIn(
        m_windows.front(), isC ? Terminals::ShortcutKey::c : Terminals::ShortcutKey::other,
        modifiers);
    if (!held)
        return held.error();
    awaitModifiers();
    auto pressed = press(scanCode, bitsOf(*held) | further);
    QThread::msleep(untilSeenMs);
    return pressed;
}

Result<void> GnomeSyntheticKeyboard::press(quint32 scanCode, qint64 modifiers)
{
    if (ShellCalls::call("PressKeys", { ShellInterface::keysOf(scanCode, modifiers) }))
        return {};
    return noAnswer();
}

}
