// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/EventMonitor.h"

#include <QList>

namespace Tessel {

/// Those who asked an EventMonitor for events.
class EventHandlers final
{
public:
    EventHandlers() = default;
    Q_DISABLE_COPY_MOVE(EventHandlers)

    [[nodiscard]] std::unique_ptr<EventMonitor::Subscription> add(InputEvent::Kinds kinds,
                                                                  EventMonitor::Handler handler);

    /// To each that wants it.
    void deliver(const InputEvent &event) const;

private:
    class Token;

    QList<Token *> m_tokens;
};

}
