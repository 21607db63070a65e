// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ClientWindows.h"
#include "platform/freedesktop/DesktopEntries.h"
#include "platform/wayland/ForeignToplevels.h"

namespace Tessel {

/// For programs that do not wait for events: each question goes to the compositor.
class WaylandClientWindows final : public ClientWindows
{
public:
    explicit WaylandClientWindows(WaylandConnection &connection);

    [[nodiscard]] QList<ClientWindow> all() override;
    [[nodiscard]] quint64 active() override;
    void activate(quint64 window) override;
    void close(quint64 window) override;

private:
    WaylandConnection &m_connection;
    ForeignToplevels m_windows;
    DesktopEntries m_entries;
};

}
