// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "lib/desktop/WindowPing.h"

#include "platform/x11/X11Connection.h"

#include <QEventLoop>
#include <QTimer>

#include <cstring>
#include <xcb/xcb.h>

namespace Tessel {

namespace {

/// The number that tells our questions from a window manager's, in place of a time.
constexpr quint32 ourQuestion = 0x7e55e1;

void ask(X11Connection &connection, quint32 window)
{
    xcb_client_message_event_t message = {};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = connection.atom("WM_PROTOCOLS");
    message.data.data32[0] = connection.atom("_NET_WM_PING");
    message.data.data32[1] = ourQuestion;
    message.data.data32[2] = window;
    xcb_send_event(connection.xcb(), 0, window, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char *>(&message));
}

void listenToRoot(X11Connection &connection, quint32 eventMask)
{
    xcb_change_window_attributes(connection.xcb(), connection.root(), XCB_CW_EVENT_MASK,
                                 &eventMask);
    xcb_flush(connection.xcb());
}

}

bool answersPing(const X11Connection &connection, quint32 window)
{
    const QByteArray protocols = connection.property(window, connection.atom("WM_PROTOCOLS"));
    const quint32 ping = connection.atom("_NET_WM_PING");
    for (qsizetype at = 0; at + 4 <= protocols.size(); at += 4) {
        if (std::memcmp(protocols.constData() + at, &ping, 4) == 0)
            return true;
    }
    return false;
}

void awaitEventsHandled(X11Connection &connection, quint32 window, std::chrono::milliseconds limit)
{
    QEventLoop loop;
    QTimer::singleShot(limit, &loop, &QEventLoop::quit);
    // The answer is the same message, sent to the root window.
    const auto token = connection.subscribe([&](const X11Event &event) {
        if (event.type() != XCB_CLIENT_MESSAGE)
            return;
        const auto &answer = event.as<xcb_client_message_event_t>();
        if (answer.window == connection.root() && answer.data.data32[1] == ourQuestion
            && answer.data.data32[2] == window)
            loop.quit();
    });
    // Qt 5 answers to those who select the first of these, others to the second.
    listenToRoot(connection, XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
    ask(connection, window);
    xcb_flush(connection.xcb());
    loop.exec();
    listenToRoot(connection, XCB_EVENT_MASK_NO_EVENT);
}

}
