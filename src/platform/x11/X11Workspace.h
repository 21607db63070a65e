// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/FreedesktopWorkspace.h"
#include "platform/x11/X11WindowManager.h"

namespace Tessel {

/// Windows by the window manager's hints (EWMH), and by their classes (ICCCM).
class X11Workspace final : public FreedesktopWorkspace
{
public:
    explicit X11Workspace(X11Connection &connection);

    [[nodiscard]] std::optional<FrontApplication> frontmostApplication() override;
    void bringToFront(quint64 window) override;
    [[nodiscard]] QStringList missingAccess() const override;

    /// The active window (EWMH), else the top-level window that has the input focus; 0: none.
    [[nodiscard]] quint32 activeWindow() const;

    /// The application that a top-level window belongs to.
    [[nodiscard]] FrontApplication applicationOf(quint32 window);

private:
    [[nodiscard]] quint32 focusedClientWindow() const;

    X11Connection &m_connection;
    X11WindowManager m_windowManager;
};

}
