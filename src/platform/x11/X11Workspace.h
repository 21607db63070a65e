// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Workspace.h"
#include "platform/freedesktop/DesktopEntries.h"

namespace Tessel {

class X11Connection;

class X11Workspace final : public Workspace
{
public:
    explicit X11Workspace(X11Connection &connection);

    [[nodiscard]] std::optional<FrontApplication> frontmostApplication() override;
    [[nodiscard]] QList<InstalledApplication> installedApplications() override;
    [[nodiscard]] std::optional<QString> bundleIdentifierOf(const QString &path) override;
    void open(const QString &url) override;
    void bringToFront(quint64 window) override;
    [[nodiscard]] QStringList missingAccess() const override;

    /// The active window (EWMH), else the top-level window that has the input focus; 0: none.
    [[nodiscard]] quint32 activeWindow() const;

    /// The application that a top-level window belongs to.
    [[nodiscard]] FrontApplication applicationOf(quint32 window);

private:
    [[nodiscard]] quint32 focusedClientWindow() const;
    [[nodiscard]] QString identifierForWindowsOf(const DesktopEntry &entry);

    X11Connection &m_connection;
    DesktopEntries m_entries;
};

}
