// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/StatusArea.h"

#include <memory>

namespace Tessel {

class X11Connection;
class X11Event;

/// A StatusNotifierItem host on the session bus, or a tray that embeds windows (System Tray
/// Protocol Specification).
class X11StatusArea final : public StatusArea
{
    Q_OBJECT

public:
    explicit X11StatusArea(X11Connection &connection);

    void start(); ///< needs the application object
    [[nodiscard]] bool isAvailable() const override { return m_hasNotifierHost || hasTray(); }

private:
    [[nodiscard]] bool hasTray() const;
    void handle(const X11Event &event);

    X11Connection &m_connection;
    quint32 m_traySelection;
    bool m_hasNotifierHost = false;
    std::shared_ptr<void> m_subscription;
};

}
