// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/EventMonitor.h"

namespace Tessel {

/// A way in which a desktop tells us of the trigger; a client cannot see keys that go to others.
class WaylandTrigger : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    virtual void set(const KeyChord &chord) = 0;

    /// False while one of our own windows has the focus, which gets its keys then.
    virtual void setWatching(bool isWatching) = 0;

    [[nodiscard]] virtual TriggerRoute route() const = 0;

    /// EventMonitor::triggerBinding().
    [[nodiscard]] virtual QString binding() const { return {}; }

    /// Presses the key that was kept last for the application in front, once.
    virtual void passOn() { }

Q_SIGNALS:
    void pressed(); ///< once, without its repetitions
    void routeChanged(); ///< or the binding
};

}
