// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/wayland/WaylandTrigger.h"

#include <QElapsedTimer>

namespace Tessel {

class KWinBridge;
class KWinFakeKeys;

/// A global shortcut of KWin's own (KGlobalAccel), of an action that our script in it registers:
/// when we crash, the script gives the key back. KWin keeps the key from applications.
class KWinTrigger final : public WaylandTrigger
{
    Q_OBJECT

public:
    /// Without keys, it cannot be passed on. Both have to outlive it.
    KWinTrigger(KWinBridge &bridge, KWinFakeKeys *keys);
    ~KWinTrigger() override; ///< removes the shortcut from the user's settings

    void set(const KeyChord &chord) override;
    void setWatching(bool isWatching) override;
    [[nodiscard]] TriggerRoute route() const override;
    void passOn() override;

private Q_SLOTS:
    void release(const QString &component, const QString &action);

private:
    void listen();
    void press();
    void assign();
    void pressForApplication();

    KWinBridge &m_bridge;
    KWinFakeKeys *m_keys;
    KeyChord m_chord;
    bool m_isRegistered = false; ///< the action is there
    bool m_isWatching = true;
    bool m_isTaken = false; ///< another action has the key
    bool m_isKept = false; ///< the last press can be passed on
    QElapsedTimer m_lastPress; ///< valid while the key is down
    QElapsedTimer m_lastRelease;
};

}
