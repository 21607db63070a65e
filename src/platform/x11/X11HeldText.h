// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/X11SelectionOwner.h"

#include <QString>

#include <memory>

namespace Tessel {

/// A text of ours on the clipboard, handed out by the event loop, over a connection of its own.
class X11HeldText final
{
public:
    /// Null when the X server does not take it.
    [[nodiscard]] static std::unique_ptr<X11HeldText> onClipboard(const QString &text);
    ~X11HeldText();

private:
    X11HeldText(std::unique_ptr<X11Connection> connection, const QString &text);

    std::unique_ptr<X11Connection> m_connection;
    X11SelectionOwner m_owner;
    std::shared_ptr<void> m_subscription;
};

}
