// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/wayland/WaylandTrigger.h"

#include <QElapsedTimer>

namespace Tessel {

class ShellBridge;
class ShellKeys;

/// A key that the shell keeps from applications for us.
class ShellTrigger final : public WaylandTrigger
{
    Q_OBJECT

public:
    ShellTrigger(const ShellBridge &bridge, ShellKeys &keys);

    void set(const KeyChord &chord) override;
    void setWatching(bool isWatching) override;
    [[nodiscard]] TriggerRoute route() const override;
    void passOn() override;

private:
    void assign();
    void awaitRelease();
    void pressForApplication();

    const ShellBridge &m_bridge;
    ShellKeys &m_keys;
    KeyChord m_chord;
    bool m_isWatching = true;
    bool m_isTaken = false; ///< by somebody else
    bool m_isKept = false; ///< the last press can be passed on
    QElapsedTimer m_sincePress;
};

}
