// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/EventMonitor.h"

#include <QList>

namespace Tessel {

class X11Connection;
class X11Event;

/// Raw events of the X Input Extension 2: they reach us whatever is grabbed or focused, and grab
/// nothing, so that the trigger key still works in the application in front.
class X11EventMonitor final : public EventMonitor
{
public:
    /// Tells whether one of our own windows receives the keys now.
    using OwnsKeyboard = std::function<bool()>;

    /// `pressedElsewhere`: a mouse button goes down in another application.
    X11EventMonitor(X11Connection &connection, OwnsKeyboard ownsKeyboard,
                    std::function<void()> pressedElsewhere);

    [[nodiscard]] std::unique_ptr<Subscription> addGlobalMonitor(InputEvent::Kinds kinds,
                                                                 Handler handler) override;

private:
    class Token;

    void selectEvents();
    void handle(const X11Event &event);
    void handleRaw(const X11Event &event);
    void deliver(const InputEvent &event);
    [[nodiscard]] bool isPointerOverOwnWindow() const;

    X11Connection &m_connection;
    OwnsKeyboard m_ownsKeyboard;
    std::function<void()> m_pressedElsewhere;
    std::shared_ptr<void> m_subscription;
    qint64 m_modifiers = 0; ///< as of the last state change that the server told
    QList<Token *> m_tokens;
};

}
