// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QFlags>
#include <QObject>
#include <QString>

#include <functional>
#include <memory>

namespace Tessel {

/// A key with the modifiers that are to be held, and no others.
struct KeyChord
{
    qint64 keyCode = -1; ///< virtual key code (KeyCodes.h)
    qint64 modifiers = 0; ///< modifier bits (KeyCodes.h)

    friend bool operator==(const KeyChord &, const KeyChord &) = default;
};

/// What becomes of the trigger's key press.
enum class TriggerRoute {
    kept, ///< from the application in front, which gets it by passTriggerOn()
    shared, ///< the application gets it as well
    lost, ///< it is kept, and cannot be passed on
    unbound, ///< the desktop tells us of no key: the user has to bind one to "tessel --trigger"
};

/// A key press, scroll or click that went to another application, or the trigger.
struct InputEvent
{
    enum class Kind { keyDown = 1, scrollWheel = 2, leftMouseUp = 4 };
    Q_DECLARE_FLAGS(Kinds, Kind)

    Kind kind = Kind::keyDown;
    qint64 keyCode = -1; ///< virtual key code (KeyCodes.h) of a key-down, -1 when it has none
    qint64 modifiers = 0; ///< modifier bits (KeyCodes.h)
};
Q_DECLARE_OPERATORS_FOR_FLAGS(InputEvent::Kinds)

/// Observes the keyboard and mouse of the whole desktop, and keeps nothing of it but the trigger.
/// Main thread only.
class EventMonitor : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    using Handler = std::function<void(const InputEvent &event)>;

    /// Stops the monitoring when it is destroyed. Must not outlive the EventMonitor.
    class Subscription
    {
    public:
        virtual ~Subscription() = default;
    };

    /// Calls the handler for each event of the given kinds that goes to another application, never
    /// for those that one of our own windows receives. Null when the desktop refuses.
    [[nodiscard]] virtual std::unique_ptr<Subscription> addGlobalMonitor(InputEvent::Kinds kinds,
                                                                         Handler handler)
        = 0;

    /// The key-down that is to be kept from the application in front, where the desktop can do
    /// that: it comes to the handlers once, without its repetitions.
    virtual void setTrigger(const KeyChord &chord) = 0;

    [[nodiscard]] virtual TriggerRoute triggerRoute() const = 0;

    /// What the user adds to the desktop's configuration to bind the trigger; empty when that is
    /// not known.
    [[nodiscard]] virtual QString triggerBinding() const { return {}; }

    /// Presses the trigger that was kept last for the application in front, once; nothing when it
    /// got it already.
    virtual void passTriggerOn() = 0;

Q_SIGNALS:
    void triggerRouteChanged(); ///< or the binding
};

}
