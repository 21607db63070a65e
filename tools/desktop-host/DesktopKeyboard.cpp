// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "DesktopKeyboard.h"

#include "DisplayConnection.h"
#include "KeyCodes.h"
#include "Typist.h"
#include "platform/x11/X11Workspace.h"

using namespace Qt::StringLiterals;
using osascript::Failure;
using osascript::Modifiers;

namespace {

constexpr int evdevOffset = 8; ///< from Linux input event codes to X keycodes

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
    const auto front = X11Workspace(*connection).frontmostApplication();
    return Typist(*connection, *layout, front.value_or(FrontApplication()));
}

Failure DesktopKeyboard::type(const QString &text, Modifiers modifiers)
{
    QString reason;
    auto hands = typist(&reason);
    if (!hands)
        return reason;
    if (modifiers == Modifiers())
        return hands->type(text);
    for (const uint character : text.toUcs4()) {
        if (auto failure = hands->shortcut(char32_t(character), modifiers))
            return failure;
    }
    return {};
}

Failure DesktopKeyboard::press(int keyCode, Modifiers modifiers)
{
    QString reason;
    auto hands = typist(&reason);
    if (!hands)
        return reason;
    const auto evdev = KeyCodes::evdevFromVirtual(keyCode);
    if (!evdev)
        return u"There is no key with the code %1."_s.arg(keyCode);
    return hands->shortcut(static_cast<quint8>(*evdev + evdevOffset), modifiers);
}
