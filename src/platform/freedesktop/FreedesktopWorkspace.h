// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/CommandRunner.h"
#include "platform/Workspace.h"
#include "platform/freedesktop/DesktopEntries.h"
#include "platform/freedesktop/WindowNames.h"

namespace Tessel {

/// What a workspace knows without its window system: the installed applications and the handlers of
/// URLs.
class FreedesktopWorkspace : public Workspace
{
public:
    FreedesktopWorkspace();

    [[nodiscard]] QList<InstalledApplication> installedApplications() override;
    [[nodiscard]] std::optional<QString> bundleIdentifierOf(const QString &path) override;
    void open(const QString &url) override;

protected:
    [[nodiscard]] FrontApplication applicationNamed(const WindowNames &names)
    {
        return Tessel::applicationNamed(names, m_entries);
    }

private:
    [[nodiscard]] QString identifierForWindowsOf(const DesktopEntry &entry);

    DesktopEntries m_entries;
    CommandRunner m_openers;
};

}
