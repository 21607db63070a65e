// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/FreedesktopWorkspace.h"

#include <QObject>

namespace Tessel {

class ShellBridge;

/// Applications as the shell's extension sees them.
class GnomeWorkspace final : public QObject, public FreedesktopWorkspace
{
    Q_OBJECT

public:
    explicit GnomeWorkspace(const ShellBridge &bridge)
        : m_bridge(bridge)
    {
    }

    [[nodiscard]] std::optional<FrontApplication> frontmostApplication() override;
    void bringToFront(quint64 window) override;
    [[nodiscard]] QStringList missingAccess() const override { return {}; }

private:
    const ShellBridge &m_bridge;
};

}
