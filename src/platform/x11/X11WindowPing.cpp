// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/x11/X11WindowPing.h"

#include "platform/x11/X11Connection.h"

#include <QEventLoop>
#include <QTimer>

#include <xcb/xcb.h>

namespace Tessel {

namespace {

/// The number that tells our questions from a window manager's, in place of a time.
constexpr quint32 ourQuestion = 0x7e55e1;

}

bool X11WindowPing::isAnswered(const X11Connection &connection, quint32 window)
{
    return connection.items(window, "WM_PROTOCOLS").contains(connection.atom("_NET_WM_PING"));
}

X11WindowPing::X11WindowPing(X11Connection &connection, quint32 window,
                             std::function<void()> answered)
    : m_connection(connection)
    , m_window(window)
    , m_answered(std::move(answered))
    // Qt 5 answers to those who select the first of these, others to the second.
    , m_rootEvents(connection.listenToRoot(XCB_EVENT_MASK_STRUCTURE_NOTIFY
                                           | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY))
    , m_subscription(connection.subscribe([this](const X11Event &event) { handle(event); }))
{
    connection.sendMessage(window, XCB_EVENT_MASK_NO_EVENT, window, "WM_PROTOCOLS",
                           { connection.atom("_NET_WM_PING"), ourQuestion, window });
}

void X11WindowPing::handle(const X11Event &event)
{
    if (event.type() != XCB_CLIENT_MESSAGE)
        return;
    // The answer is the same message, sent to the root window.
    const auto &answer = event.as<xcb_client_message_event_t>();
    const bool isOurs = answer.window == m_connection.root() && answer.data.data32[1] == ourQuestion
        && answer.data.data32[2] == m_window;
    if (!isOurs || !m_answered)
        return;
    m_rootEvents.reset();
    const auto answered = std::exchange(m_answered, {}); // which may destroy this
    answered();
}

void awaitEventsHandled(X11Connection &connection, quint32 window, std::chrono::milliseconds limit)
{
    QEventLoop loop;
    QTimer::singleShot(limit, &loop, &QEventLoop::quit);
    const X11WindowPing ping(connection, window, [&loop] { loop.quit(); });
    loop.exec();
}

}
