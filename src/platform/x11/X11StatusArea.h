// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/NotifierArea.h"
#include "platform/x11/X11Manager.h"

namespace Tessel {

/// Also a tray that embeds windows (System Tray Protocol Specification).
class X11StatusArea final : public NotifierArea
{
    Q_OBJECT

public:
    explicit X11StatusArea(X11Connection &connection);

    [[nodiscard]] std::optional<quint32> itemColor() const override;

private:
    [[nodiscard]] bool hasOtherTray() const override { return m_tray.window(); }

    X11Connection &m_connection;
    X11Manager m_tray;
};

}
