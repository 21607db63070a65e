// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ClientWindows.h"
#include "platform/x11/X11WindowManager.h"

namespace Tessel {

class X11Workspace;

class X11ClientWindows final : public ClientWindows
{
public:
    X11ClientWindows(X11Connection &connection, X11Workspace &workspace);

    [[nodiscard]] QList<ClientWindow> all() override;
    [[nodiscard]] quint64 active() override;
    void activate(quint64 window) override;
    void close(quint64 window) override;

private:
    X11Connection &m_connection;
    X11WindowManager m_windowManager;
    X11Workspace &m_workspace;
};

}
