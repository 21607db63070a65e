// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Workspace.h"

namespace Tessel {

/// A window of an application, as task bars show it.
struct ClientWindow
{
    FrontApplication application; ///< with the window's handle
    qint64 processId = 0; ///< 0 when it does not say
    bool isHidden = false;
};

/// The windows of all applications. Requests are made on the user's behalf and return at once.
class ClientWindows
{
public:
    virtual ~ClientWindows() = default;

    /// The topmost first.
    [[nodiscard]] virtual QList<ClientWindow> all() = 0;

    /// The handle of the one that has the user's attention; 0: none.
    [[nodiscard]] virtual quint64 active() = 0;

    /// Brings it before the others, with the keyboard.
    virtual void activate(quint64 window) = 0;

    /// Closes it as its own button would: the application may ask the user first.
    virtual void close(quint64 window) = 0;
};

}
