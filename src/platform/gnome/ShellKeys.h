// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/wayland/WaylandKeys.h"

#include <QDeadlineTimer>
#include <QObject>
#include <QPromise>

#include <memory>

namespace Tessel {

class ShellBridge;

/// A virtual keyboard of the shell's. Its keys share their modifiers with the user's, which nobody
/// but the user can lift.
class ShellKeys final : public QObject, public WaylandKeys
{
    Q_OBJECT

public:
    explicit ShellKeys(const ShellBridge &bridge)
        : m_bridge(bridge)
    {
    }

    [[nodiscard]] QFuture<void> whenReady() override;
    void press(quint32 scanCode, qint64 modifiers) override;

private:
    void look(const std::shared_ptr<QPromise<void>> &ready, QDeadlineTimer deadline);

    const ShellBridge &m_bridge;
};

}
