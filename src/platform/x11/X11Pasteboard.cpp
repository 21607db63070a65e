// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/x11/X11Pasteboard.h"

#include "platform/x11/X11Connection.h"
#include "platform/x11/X11SelectionReader.h"

#include <QClipboard>
#include <QGuiApplication>

#include <xcb/xfixes.h>

namespace Tessel {

X11Pasteboard::X11Pasteboard(X11Connection &connection, X11SelectionReader &reader)
    : m_connection(connection)
    , m_reader(reader)
    , m_clipboard(connection.atom("CLIPBOARD"))
{
    if (!connection.xfixes().present)
        return;
    xcb_xfixes_select_selection_input(connection.xcb(), connection.root(), m_clipboard,
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER);
    m_subscription = connection.subscribe([this](const X11Event &event) { handle(event); });
}

void X11Pasteboard::handle(const X11Event &event)
{
    const int xfixesType = m_connection.xfixes().firstEvent + XCB_XFIXES_SELECTION_NOTIFY;
    if (event.type() != xfixesType)
        return;
    const auto &notify = event.as<xcb_xfixes_selection_notify_event_t>();
    if (notify.selection == m_clipboard && notify.owner != XCB_NONE)
        ++m_changeCount;
}

QFuture<std::optional<QString>> X11Pasteboard::string(std::chrono::milliseconds patience)
{
    return m_reader.read(m_clipboard, patience);
}

void X11Pasteboard::setString(const QString &text)
{
    QGuiApplication::clipboard()->setText(text);
}

}
