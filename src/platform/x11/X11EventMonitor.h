// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/EventHandlers.h"
#include "platform/x11/X11TriggerKey.h"

#include <QTimer>

namespace Tessel {

class X11Connection;
class X11Event;

/// Raw events of the X Input Extension 2: they reach us whatever is grabbed or focused, and are
/// kept from nobody. The trigger is grabbed, or observed like the rest where another client has it.
class X11EventMonitor final : public EventMonitor
{
    Q_OBJECT

public:
    /// `pressedElsewhere`: a mouse button goes down in another application.
    X11EventMonitor(X11Connection &connection, X11KeyGrabs &grabs,
                    std::function<bool()> popupHasKeyboard, std::function<void()> pressedElsewhere);

    /// Leaves the trigger to our own windows while they have the focus. Needs the application
    /// object.
    void start();

    [[nodiscard]] std::unique_ptr<Subscription> addGlobalMonitor(InputEvent::Kinds kinds,
                                                                 Handler handler) override;
    void setTrigger(const KeyChord &chord) override;
    [[nodiscard]] TriggerRoute triggerRoute() const override
    {
        return m_trigger.isShared() ? TriggerRoute::shared : TriggerRoute::kept;
    }
    void passTriggerOn() override { m_trigger.passOn(); }

private:
    void selectEvents();
    void handle(const X11Event &event);
    void handleRaw(const X11Event &event);
    void handleRawKey(quint8 key);
    void missTrigger();
    void deliverShared(quint8 key);
    void handleRawPress(quint32 button);
    void deliver(const InputEvent &event) { m_handlers.deliver(event); }
    template <typename Change> void updateTrigger(Change change);
    [[nodiscard]] bool isPointerOverOwnWindow() const;

    X11Connection &m_connection;
    X11KeyGrabs &m_grabs;
    X11TriggerKey m_trigger;
    std::function<bool()> m_popupHasKeyboard;
    std::function<void()> m_pressedElsewhere;
    std::shared_ptr<void> m_subscription;
    QTimer m_patience; ///< from the raw event of the trigger until its press
    quint8 m_expectedKey = 0; ///< that it waits for
    quint8 m_modifiers = 0; ///< mask as of the last state change that the server told
    bool m_isLeftPressOurs = false; ///< the left button went down in one of our windows
    EventHandlers m_handlers;
};

}
