// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "lib/desktop/DesktopKeyboard.h"

#include "base/KeyCodes.h"
#include "lib/desktop/DisplayConnection.h"
#include "lib/desktop/Typist.h"
#include "platform/x11/X11Workspace.h"

#include <QThread>

#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace Tessel {

using Osascript::Modifiers;

namespace {

/// Pasting takes messages to and fro between the program and the clipboard's owner, and GTK 3
/// handles further keys meanwhile.
constexpr auto clipboardTime = 100ms;

}

DesktopKeyboard::DesktopKeyboard(DisplayConnection &display)
    : m_display(display)
{
}

std::optional<Typist> DesktopKeyboard::typist(QString *reason)
{
    X11Connection *connection = m_display.connection();
    if (!connection) {
        *reason = m_display.error();
        return {};
    }
    const auto layout = X11KeyLayout::read(*connection);
    if (!layout || !connection->xtest().present) {
        *reason = u"The X server lets no program press keys (XTEST and XKB are missing)."_s;
        return {};
    }
    const bool followsShortcut = m_shortcutEffect.has_value();
    if (followsShortcut)
        QThread::msleep(static_cast<unsigned long>(m_shortcutEffect->remainingTime()));
    m_shortcutEffect.reset();
    const auto front = X11Workspace(*connection).frontmostApplication();
    std::optional<Typist> hands(std::in_place, *connection, *layout,
                                front.value_or(FrontApplication()));
    if (followsShortcut)
        hands->awaitProgram(1s);
    return hands;
}

Result<void> DesktopKeyboard::type(const QString &text, Modifiers modifiers)
{
    if (modifiers == Modifiers()) {
        QString reason;
        auto hands = typist(&reason);
        return hands ? hands->type(text) : Failure { reason };
    }
    for (const uint character : text.toUcs4()) {
        if (auto typed = typeShortcut(char32_t(character), modifiers); !typed)
            return typed;
    }
    return {};
}

Result<void> DesktopKeyboard::typeShortcut(char32_t character, Modifiers modifiers)
{
    QString reason;
    auto hands = typist(&reason);
    if (!hands)
        return Failure { reason };
    auto pressed = hands->shortcut(character, modifiers);
    note(modifiers);
    return pressed;
}

Result<void> DesktopKeyboard::press(int keyCode, Modifiers modifiers)
{
    QString reason;
    auto hands = typist(&reason);
    if (!hands)
        return Failure { reason };
    const auto key = KeyCodes::scanCodeFromVirtual(keyCode);
    if (!key)
        return Failure { u"There is no key with the code %1."_s.arg(keyCode) };
    auto pressed = hands->shortcut(static_cast<quint8>(*key), modifiers);
    note(modifiers);
    return pressed;
}

/// To be called when the program has seen the key.
void DesktopKeyboard::note(Modifiers modifiers)
{
    if (modifiers.command)
        m_shortcutEffect = QDeadlineTimer(clipboardTime);
}

}
