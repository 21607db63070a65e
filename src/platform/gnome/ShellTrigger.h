// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/wayland/WaylandTrigger.h"

namespace Tessel {

class ShellBridge;

/// A key that the shell keeps from applications for us.
class ShellTrigger final : public WaylandTrigger
{
    Q_OBJECT

public:
    explicit ShellTrigger(const ShellBridge &bridge);

    void set(const KeyChord &chord) override;
    void setWatching(bool isWatching) override;
    [[nodiscard]] TriggerRoute route() const override;
    void passOn() override;

private:
    void assign();

    const ShellBridge &m_bridge;
    KeyChord m_chord;
    bool m_isWatching = true;
    bool m_isTaken = false; ///< by somebody else
    bool m_isKept = false; ///< the last press can be passed on
};

}
