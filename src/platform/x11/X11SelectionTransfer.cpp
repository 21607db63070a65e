// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/x11/X11SelectionTransfer.h"

#include "platform/freedesktop/SelectionText.h"
#include "platform/x11/X11Connection.h"

#include <iterator>
#include <xcb/xcb.h>
#include <xcb/xfixes.h>

namespace Tessel {

namespace {

constexpr auto maxBytes = static_cast<quint32>(maxSelectionBytes);

}

X11SelectionTransfer::X11SelectionTransfer(X11Connection &connection, quint32 selection,
                                           std::chrono::milliseconds patience,
                                           std::chrono::milliseconds limit, Accept accept)
    : SelectionTransfer(patience, limit)
    , m_connection(connection)
    , m_selection(selection)
    , m_owner(connection.selectionOwner(selection))
    , m_window(connection.createWindow())
    , m_property(connection.atom("TESSEL_SELECTION"))
{
    m_subscription = connection.subscribe([this](const X11Event &event) { handle(event); });
    if (accept == Accept::selectedText)
        request(Asked::targets, "TARGETS");
    else
        requestNextFormat();
}

X11SelectionTransfer::~X11SelectionTransfer()
{
    xcb_destroy_window(m_connection.xcb(), m_window);
    xcb_flush(m_connection.xcb());
}

void X11SelectionTransfer::requestNextFormat()
{
    if (++m_format == int(std::size(textFormats)))
        finish({});
    else
        request(Asked::text, textFormats[m_format].name);
}

void X11SelectionTransfer::request(Asked what, const char *target)
{
    m_asked = what;
    xcb_convert_selection(m_connection.xcb(), m_window, m_selection, m_connection.atom(target),
                          m_property, XCB_CURRENT_TIME);
    xcb_flush(m_connection.xcb());
    awaitOwner();
}

void X11SelectionTransfer::handle(const X11Event &event)
{
    if (isFinished())
        return;
    const int type = event.type();
    if (type == XCB_SELECTION_NOTIFY) {
        const auto &notify = event.as<xcb_selection_notify_event_t>();
        if (notify.requestor == m_window && !m_incremental)
            takeAnswer(notify.property);
    } else if (type == XCB_PROPERTY_NOTIFY && m_incremental) {
        const auto &notify = event.as<xcb_property_notify_event_t>();
        if (notify.window == m_window && notify.atom == m_property
            && notify.state == XCB_PROPERTY_NEW_VALUE)
            takePiece();
    } else if (type == m_connection.xfixes().firstEvent + XCB_XFIXES_SELECTION_NOTIFY) {
        // Another owner: the answer of the one before is of no use any more. Some take a selection
        // again when they are asked for it (gvim 9).
        const auto &notify = event.as<xcb_xfixes_selection_notify_event_t>();
        if (notify.selection == m_selection && notify.owner != m_owner)
            finish({});
    }
}

void X11SelectionTransfer::takeAnswer(quint32 property)
{
    switch (m_asked) {
    case Asked::targets:
        return takeTargets(property);
    case Asked::passwordHint:
        if (property != XCB_NONE && m_connection.property(m_window, property, 16) == secretHint)
            return finish({});
        return requestNextFormat();
    case Asked::text:
        return property == XCB_NONE ? requestNextFormat() : takeText(property);
    }
}

/// Owners that do not answer this are older than the targets that matter here.
void X11SelectionTransfer::takeTargets(quint32 property)
{
    const auto targets
        = property == XCB_NONE ? QList<quint32>() : m_connection.items(m_window, property);
    if (targets.contains(m_connection.atom(copiedFiles)))
        finish({});
    else if (targets.contains(m_connection.atom(passwordHint)))
        request(Asked::passwordHint, passwordHint);
    else
        requestNextFormat();
}

void X11SelectionTransfer::takeText(quint32 property)
{
    const XcbPtr<xcb_get_property_reply_t> type(
        xcb_get_property_reply(m_connection.xcb(),
                               xcb_get_property(m_connection.xcb(), 0, m_window, property,
                                                XCB_GET_PROPERTY_TYPE_ANY, 0, 0),
                               nullptr));
    m_incremental = type && type->type == m_connection.atom("INCR");
    if (m_incremental) {
        // Deleting the property asks for the first piece (ICCCM, section 2.7.2).
        xcb_delete_property(m_connection.xcb(), m_window, m_property);
        xcb_flush(m_connection.xcb());
        awaitOwner();
        return;
    }
    if (!type || type->bytes_after > maxBytes) {
        finish({});
        return;
    }
    m_bytes = m_connection.property(m_window, property, maxBytes);
    finish(utf8());
}

void X11SelectionTransfer::takePiece()
{
    const QByteArray piece = m_connection.property(m_window, m_property, maxBytes);
    xcb_delete_property(m_connection.xcb(), m_window, m_property);
    xcb_flush(m_connection.xcb());
    m_bytes += piece;
    if (piece.isEmpty())
        finish(utf8());
    else if (m_bytes.size() > maxBytes)
        finish({});
    else
        awaitOwner();
}

QByteArray X11SelectionTransfer::utf8() const
{
    return toUtf8(m_bytes, textFormats[m_format].charset);
}

}
