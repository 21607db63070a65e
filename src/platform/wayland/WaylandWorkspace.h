// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/FreedesktopWorkspace.h"

#include <QStringList>

namespace Tessel {

class WaylandWindows;

/// Applications by the windows that the compositor lists.
class WaylandWorkspace final : public FreedesktopWorkspace
{
public:
    /// What the session lacks is in words for the user.
    WaylandWorkspace(WaylandWindows &windows, QStringList missingAccess);

    [[nodiscard]] std::optional<FrontApplication> frontmostApplication() override;
    void bringToFront(quint64 window) override;
    [[nodiscard]] QStringList missingAccess() const override { return m_missingAccess; }

private:
    WaylandWindows &m_windows;
    QStringList m_missingAccess;
};

}
