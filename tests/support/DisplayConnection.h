// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/X11Connection.h"

namespace Tessel::Desktop {

// The program's own connection, which is always to $DISPLAY, to another server. Null without one.
[[nodiscard]] inline std::unique_ptr<X11Connection> connectionTo(const QByteArray &display)
{
    const QByteArray own = qgetenv("DISPLAY");
    qputenv("DISPLAY", display);
    auto connection = X11Connection::open();
    own.isNull() ? qunsetenv("DISPLAY") : qputenv("DISPLAY", own);
    return connection ? *std::move(connection) : nullptr;
}

}
