// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/EventHandlers.h"
#include "platform/wayland/WaylandTrigger.h"

namespace Tessel {

/// Tells of the trigger, by the best way that the desktop has for it, and of what our popups see of
/// the user's hands: clients are not told of what goes to others.
class WaylandEventMonitor final : public EventMonitor
{
    Q_OBJECT

public:
    WaylandEventMonitor();
    ~WaylandEventMonitor() override;

    /// Leaves the trigger to our own windows while they have the focus. Needs the application
    /// object.
    void start(std::unique_ptr<WaylandTrigger> trigger);

    [[nodiscard]] std::unique_ptr<Subscription> addGlobalMonitor(InputEvent::Kinds kinds,
                                                                 Handler handler) override;
    void setTrigger(const KeyChord &chord) override;
    [[nodiscard]] TriggerRoute triggerRoute() const override;
    [[nodiscard]] QString triggerBinding() const override;
    void passTriggerOn() override;

    /// Something that was meant for another application came to one of our popups.
    void deliver(const InputEvent &event) { m_handlers.deliver(event); }

private:
    void leaveKeysToOwnWindows();

    EventHandlers m_handlers;
    std::unique_ptr<WaylandTrigger> m_trigger;
    KeyChord m_chord;
};

}
