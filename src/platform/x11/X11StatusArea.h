// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/NotifierArea.h"

#include <memory>

namespace Tessel {

class X11Connection;
class X11Event;

/// Also a tray that embeds windows (System Tray Protocol Specification).
class X11StatusArea final : public NotifierArea
{
    Q_OBJECT

public:
    explicit X11StatusArea(X11Connection &connection);

    [[nodiscard]] bool isAvailable() const override
    {
        return NotifierArea::isAvailable() || m_tray;
    }
    [[nodiscard]] std::optional<quint32> itemColor() const override;

private:
    void handle(const X11Event &event);
    void follow(quint32 tray);

    X11Connection &m_connection;
    quint32 m_traySelection;
    quint32 m_colors;
    quint32 m_tray = 0; ///< window of its manager
    std::shared_ptr<void> m_subscription;
};

}
