// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QFlags>
#include <QtGlobal>

#include <functional>
#include <memory>

namespace Tessel {

/// A key press, scroll or click that went to another application.
struct InputEvent
{
    enum class Kind { keyDown = 1, scrollWheel = 2, leftMouseUp = 4 };
    Q_DECLARE_FLAGS(Kinds, Kind)

    Kind kind = Kind::keyDown;
    qint64 keyCode = -1; ///< virtual key code (KeyCodes.h) of a key-down, -1 when it has none
    qint64 modifiers = 0; ///< modifier bits (KeyCodes.h)
};
Q_DECLARE_OPERATORS_FOR_FLAGS(InputEvent::Kinds)

/// Observes the keyboard and mouse of the whole desktop; never consumes anything. Main thread only.
class EventMonitor
{
public:
    using Handler = std::function<void(const InputEvent &event)>;

    /// Stops the monitoring when it is destroyed. Must not outlive the EventMonitor.
    class Subscription
    {
    public:
        virtual ~Subscription() = default;
    };

    virtual ~EventMonitor() = default;

    /// Calls the handler for each event of the given kinds that goes to another application, never
    /// for those that one of our own windows receives. Null when the desktop refuses.
    [[nodiscard]] virtual std::unique_ptr<Subscription> addGlobalMonitor(InputEvent::Kinds kinds,
                                                                         Handler handler)
        = 0;
};

}
