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

void listenToRoot(X11Connection &connection, quint32 eventMask)
{
    xcb_change_window_attributes(connection.xcb(), connection.root(), XCB_CW_EVENT_MASK,
                                 &eventMask);
    xcb_flush(connection.xcb());
}

}

bool answersPing(const X11Connection &connection, quint32 window)
{
    return connection.items(window, "WM_PROTOCOLS").contains(connection.atom("_NET_WM_PING"));
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
    connection.sendMessage(window, XCB_EVENT_MASK_NO_EVENT, window, "WM_PROTOCOLS",
                           { connection.atom("_NET_WM_PING"), ourQuestion, window });
    loop.exec();
    listenToRoot(connection, XCB_EVENT_MASK_NO_EVENT);
}

}
