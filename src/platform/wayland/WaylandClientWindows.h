// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ClientWindows.h"
#include "platform/freedesktop/DesktopEntries.h"

#include <memory>

namespace Tessel {

class WaylandConnection;
class WaylandWindows;

/// For programs that do not wait for events: each question goes to the compositor.
class WaylandClientWindows final : public ClientWindows
{
public:
    explicit WaylandClientWindows(WaylandConnection &connection);
    ~WaylandClientWindows() override;

    [[nodiscard]] QList<ClientWindow> all() override;
    [[nodiscard]] quint64 active() override;
    void activate(quint64 window) override;
    void close(quint64 window) override;

    /// Of the active window.
    [[nodiscard]] FrontApplication front();

private:
    void refresh();

    WaylandConnection &m_connection;
    std::unique_ptr<WaylandWindows> m_windows;
    DesktopEntries m_entries;
};

}
