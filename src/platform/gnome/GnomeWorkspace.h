// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/FreedesktopWorkspace.h"

#include <QObject>

namespace Tessel {

class BareDesktop;
class ShellBridge;

/// Applications as the shell's extension sees them, else X11's.
class GnomeWorkspace final : public QObject, public FreedesktopWorkspace
{
    Q_OBJECT

public:
    GnomeWorkspace(const ShellBridge &bridge, const BareDesktop &bare)
        : m_bridge(bridge)
        , m_bare(bare)
    {
    }

    [[nodiscard]] std::optional<FrontApplication> frontmostApplication() override;
    void bringToFront(quint64 window) override;
    [[nodiscard]] QStringList missingAccess() const override { return {}; }

private:
    const ShellBridge &m_bridge;
    const BareDesktop &m_bare;
};

}
