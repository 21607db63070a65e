// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ClientWindows.h"
#include "platform/freedesktop/DesktopEntries.h"

namespace Tessel {

/// For programs that do not wait for events: each question goes to the shell.
class GnomeClientWindows final : public ClientWindows
{
public:
    [[nodiscard]] QList<ClientWindow> all() override;
    [[nodiscard]] quint64 active() override;
    void activate(quint64 window) override;
    void close(quint64 window) override;

    /// Of the active window.
    [[nodiscard]] FrontApplication front();

private:
    DesktopEntries m_entries { DesktopEntries::standardFolders() };
};

}
