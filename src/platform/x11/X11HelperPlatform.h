// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/HelperPlatform.h"
#include "platform/x11/X11ClientWindows.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/X11TextClipboard.h"
#include "platform/x11/X11Workspace.h"

namespace Tessel {

/// An X11 desktop for programs without windows, over one connection.
class X11HelperPlatform final : public HelperPlatform
{
public:
    /// Fails when the X server cannot be reached.
    [[nodiscard]] static Result<std::unique_ptr<HelperPlatform>> connect();

    [[nodiscard]] TextClipboard &clipboard() override { return m_clipboard; }
    [[nodiscard]] ClientWindows &clientWindows() override { return m_clientWindows; }
    void ringBell() override;
    [[nodiscard]] QByteArray qtPlugin() const override { return "xcb"; }

private:
    explicit X11HelperPlatform(std::unique_ptr<X11Connection> connection);

    std::unique_ptr<X11Connection> m_connection;
    X11Workspace m_workspace { *m_connection };
    X11TextClipboard m_clipboard { *m_connection };
    X11ClientWindows m_clientWindows { *m_connection, m_workspace };
};

}
