// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/x11/X11SyntheticKeyboard.h"

#include "base/KeyCodes.h"
#include "platform/x11/X11Typist.h"
#include "platform/x11/X11WindowPing.h"

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

Failure notAllowed()
{
    return { u"The X server lets no program press keys (XTEST and XKB are missing)."_s };
}

}

X11SyntheticKeyboard::X11SyntheticKeyboard(std::unique_ptr<X11Connection> connection)
    : m_connection(std::move(connection))
{
    m_connection->start();
}

Result<std::unique_ptr<SyntheticKeyboard>> X11SyntheticKeyboard::connect()
{
    auto connection = X11Connection::open();
    if (!connection)
        return connection.error();
    if (!(*connection)->xtest().present)
        return notAllowed();
    return std::unique_ptr<SyntheticKeyboard>(new X11SyntheticKeyboard(*std::move(connection)));
}

/// For the layout and the application as they are now.
Result<X11Typist> X11SyntheticKeyboard::typist()
{
    const auto layout = X11KeyLayout::read(*m_connection);
    if (!layout)
        return notAllowed();
    return X11Typist(*m_connection, *layout,
                     m_workspace.frontmostApplication().value_or(FrontApplication()));
}

Result<void> X11SyntheticKeyboard::type(const QString &text)
{
    auto hands = typist();
    return hands ? hands->type(text) : hands.error();
}

Result<void> X11SyntheticKeyboard::pressCharacter(char32_t character, ShortcutModifiers modifiers)
{
    auto hands = typist();
    return hands ? hands->shortcut(character, modifiers) : hands.error();
}

Result<void> X11SyntheticKeyboard::pressKey(qint64 keyCode, ShortcutModifiers modifiers)
{
    auto hands = typist();
    if (!hands)
        return hands.error();
    const auto key = KeyCodes::scanCodeFromVirtual(keyCode);
    if (!key)
        return Failure { u"There is no key with the code %1."_s.arg(keyCode) };
    return hands->shortcut(static_cast<quint8>(*key), modifiers);
}

void X11SyntheticKeyboard::awaitKeysSeen(std::chrono::milliseconds limit)
{
    const quint32 window = m_workspace.activeWindow();
    if (window && X11WindowPing::isAnswered(*m_connection, window))
        awaitEventsHandled(*m_connection, window, limit);
}

}
