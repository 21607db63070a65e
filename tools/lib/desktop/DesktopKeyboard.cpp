// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "lib/desktop/DesktopKeyboard.h"

#include "platform/SyntheticKeyboard.h"

#include <QThread>

using namespace std::chrono_literals;

namespace Tessel {

using Osascript::Modifiers;

namespace {

/// Pasting takes messages to and fro between the program and the clipboard's owner, and GTK 3
/// handles further keys meanwhile.
constexpr auto clipboardTime = 100ms;
constexpr auto shortcutPatience = 1s;

}

DesktopKeyboard::DesktopKeyboard() = default;
DesktopKeyboard::~DesktopKeyboard() = default;

/// When the last shortcut has had its effect.
Result<SyntheticKeyboard *> DesktopKeyboard::keyboard()
{
    if (!m_keyboard) {
        auto made = makeSyntheticKeyboard();
        if (!made)
            return made.error();
        m_keyboard = *std::move(made);
    }
    if (m_shortcutEffect) {
        QThread::msleep(static_cast<unsigned long>(m_shortcutEffect->remainingTime()));
        m_shortcutEffect.reset();
        m_keyboard->awaitKeysSeen(shortcutPatience);
    }
    return m_keyboard.get();
}

Result<void> DesktopKeyboard::type(const QString &text, Modifiers modifiers)
{
    if (modifiers == Modifiers()) {
        const auto keys = keyboard();
        return keys ? (*keys)->type(text) : keys.error();
    }
    for (const uint character : text.toUcs4()) {
        if (auto typed = typeShortcut(char32_t(character), modifiers); !typed)
            return typed;
    }
    return {};
}

Result<void> DesktopKeyboard::typeShortcut(char32_t character, Modifiers modifiers)
{
    const auto keys = keyboard();
    if (!keys)
        return keys.error();
    auto pressed = (*keys)->pressCharacter(character, modifiers);
    rememberShortcut(modifiers);
    return pressed;
}

Result<void> DesktopKeyboard::press(int keyCode, Modifiers modifiers)
{
    const auto keys = keyboard();
    if (!keys)
        return keys.error();
    auto pressed = (*keys)->pressKey(keyCode, modifiers);
    rememberShortcut(modifiers);
    return pressed;
}

/// To be called when the program has seen the key.
void DesktopKeyboard::rememberShortcut(Modifiers modifiers)
{
    if (modifiers.command)
        m_shortcutEffect = QDeadlineTimer(clipboardTime);
}

}
