// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/x11/X11HeldText.h"

#include "platform/x11/X11Connection.h"

namespace Tessel {

X11HeldText::X11HeldText(std::unique_ptr<X11Connection> connection, const QString &text)
    : m_connection(std::move(connection))
    , m_owner(*m_connection, "CLIPBOARD", text.toUtf8())
    , m_subscription(
          m_connection->subscribe([this](const X11Event &event) { m_owner.handle(event); }))
{
}

X11HeldText::~X11HeldText() = default;

std::unique_ptr<X11HeldText> X11HeldText::onClipboard(const QString &text)
{
    auto connection = X11Connection::open();
    if (!connection)
        return nullptr;
    std::unique_ptr<X11HeldText> held(new X11HeldText(*std::move(connection), text));
    if (!held->m_owner.take())
        return nullptr;
    held->m_connection->start();
    return held;
}

}
