// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/EventHandlers.h"

namespace Tessel {

class EventHandlers::Token final : public EventMonitor::Subscription
{
public:
    Token(QList<Token *> &tokens, InputEvent::Kinds wanted, EventMonitor::Handler callback)
        : kinds(wanted)
        , handler(std::move(callback))
        , m_tokens(tokens)
    {
        m_tokens.append(this);
    }
    ~Token() override { m_tokens.removeOne(this); }
    Q_DISABLE_COPY_MOVE(Token)

    InputEvent::Kinds kinds;
    EventMonitor::Handler handler;

private:
    QList<Token *> &m_tokens;
};

std::unique_ptr<EventMonitor::Subscription> EventHandlers::add(InputEvent::Kinds kinds,
                                                               EventMonitor::Handler handler)
{
    return std::make_unique<Token>(m_tokens, kinds, std::move(handler));
}

void EventHandlers::deliver(const InputEvent &event) const
{
    const auto tokens = m_tokens; // a handler may end its own subscription
    for (Token *token : tokens) {
        if (m_tokens.contains(token) && token->kinds.testFlag(event.kind))
            token->handler(event);
    }
}

}
