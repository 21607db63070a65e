// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/x11/X11SelectionOwner.h"

#include "platform/freedesktop/SelectionText.h"
#include "platform/x11/X11Connection.h"

#include <algorithm>
#include <xcb/xcb.h>

namespace Tessel {

namespace {

constexpr qsizetype maxPiece = 256 << 10;
constexpr qsizetype requestHead = 64; ///< more than the fixed part of any request
constexpr qsizetype maxTargetPairs = 1 << 10;

}

X11SelectionOwner::X11SelectionOwner(X11Connection &connection, const char *selection,
                                     const QByteArray &text)
    : m_connection(connection)
    , m_selection(connection.atom(selection))
    , m_window(connection.createWindow())
    , m_pieceSize(std::min<qsizetype>(
          maxPiece,
          xcb_get_setup(connection.xcb())->maximum_request_length * qsizetype { 4 } - requestHead))
{
    const quint32 utf8 = connection.atom("UTF8_STRING");
    m_contents[utf8] = m_contents[connection.atom("TEXT")] = { utf8, text };
    for (const char *name : { "text/plain;charset=utf-8", "text/plain" })
        m_contents[connection.atom(name)] = { connection.atom(name), text };
    if (const auto string = toLatin1(text))
        m_contents[XCB_ATOM_STRING] = { XCB_ATOM_STRING, *string };
}

bool X11SelectionOwner::take()
{
    m_time = currentTime();
    xcb_set_selection_owner(m_connection.xcb(), m_window, m_selection, m_time);
    m_isOwner = m_connection.selectionOwner(m_selection) == m_window;
    return m_isOwner;
}

/// A change of a property tells the server's time (ICCCM, section 2.1).
quint32 X11SelectionOwner::currentTime() const
{
    xcb_connection_t *xcb = m_connection.xcb();
    xcb_change_property(xcb, XCB_PROP_MODE_APPEND, m_window, XCB_ATOM_WM_NAME, XCB_ATOM_STRING, 8,
                        0, nullptr);
    xcb_flush(xcb);
    while (const XcbPtr<xcb_generic_event_t> event { xcb_wait_for_event(xcb) }) {
        if ((event->response_type & 0x7f) == XCB_PROPERTY_NOTIFY)
            return X11Event(event.get()).as<xcb_property_notify_event_t>().time;
    }
    return XCB_CURRENT_TIME;
}

void X11SelectionOwner::serve()
{
    while (m_isOwner || !m_transfers.isEmpty()) {
        const XcbPtr<xcb_generic_event_t> event(xcb_wait_for_event(m_connection.xcb()));
        if (!event)
            return;
        handle(X11Event(event.get()));
        xcb_flush(m_connection.xcb());
    }
}

void X11SelectionOwner::handle(const X11Event &event)
{
    switch (event.type()) {
    case XCB_SELECTION_REQUEST:
        answer(event);
        break;
    case XCB_SELECTION_CLEAR:
        m_isOwner = false;
        break;
    case XCB_PROPERTY_NOTIFY: {
        const auto &notify = event.as<xcb_property_notify_event_t>();
        if (notify.state == XCB_PROPERTY_DELETE)
            sendPiece(notify.window, notify.atom);
        break;
    }
    case XCB_DESTROY_NOTIFY:
        forget(event.as<xcb_destroy_notify_event_t>().window);
        break;
    default:
        break;
    }
}

void X11SelectionOwner::answer(const X11Event &event)
{
    const auto &request = event.as<xcb_selection_request_event_t>();
    // Clients of before the ICCCM name no property.
    const quint32 property = request.property ? request.property : request.target;
    xcb_selection_notify_event_t notify = {};
    notify.response_type = XCB_SELECTION_NOTIFY;
    notify.time = request.time;
    notify.requestor = request.requestor;
    notify.selection = request.selection;
    notify.target = request.target;
    notify.property = convert(request.requestor, request.target, property) ? property : XCB_NONE;
    xcb_send_event(m_connection.xcb(), 0, request.requestor, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char *>(&notify));
}

bool X11SelectionOwner::convert(quint32 requestor, quint32 target, quint32 property)
{
    if (target == m_connection.atom("MULTIPLE"))
        return convertMultiple(requestor, property);
    if (target == m_connection.atom("TARGETS")) {
        setItems(requestor, property, XCB_ATOM_ATOM, targetList());
        return true;
    }
    if (target == m_connection.atom("TIMESTAMP")) {
        setItems(requestor, property, XCB_ATOM_INTEGER, { m_time });
        return true;
    }
    const auto content = m_contents.constFind(target);
    const bool isKnown = content != m_contents.constEnd();
    if (isKnown)
        sendContent(requestor, property, *content);
    return isKnown;
}

/// The property has pairs of a target and a property; a target that fails becomes None.
bool X11SelectionOwner::convertMultiple(quint32 requestor, quint32 property)
{
    QList<quint32> pairs = m_connection.items(requestor, property);
    pairs.resize(std::min(pairs.size(), maxTargetPairs * 2));
    const quint32 multiple = m_connection.atom("MULTIPLE");
    for (qsizetype at = 0; at + 1 < pairs.size(); at += 2) {
        if (pairs[at] == multiple || !pairs[at + 1]
            || !convert(requestor, pairs[at], pairs[at + 1]))
            pairs[at] = XCB_NONE;
    }
    setItems(requestor, property, m_connection.atom("ATOM_PAIR"), pairs);
    return !pairs.isEmpty();
}

QList<quint32> X11SelectionOwner::targetList() const
{
    QList<quint32> list = m_contents.keys();
    for (const char *name : { "TARGETS", "MULTIPLE", "TIMESTAMP" })
        list += m_connection.atom(name);
    return list;
}

void X11SelectionOwner::setItems(quint32 window, quint32 property, quint32 type,
                                 const QList<quint32> &items)
{
    xcb_change_property(m_connection.xcb(), XCB_PROP_MODE_REPLACE, window, property, type, 32,
                        static_cast<quint32>(items.size()), items.constData());
}

void X11SelectionOwner::sendContent(quint32 requestor, quint32 property, const Content &content)
{
    xcb_connection_t *xcb = m_connection.xcb();
    const auto size = static_cast<quint32>(content.bytes.size());
    if (content.bytes.size() <= m_pieceSize) {
        xcb_change_property(xcb, XCB_PROP_MODE_REPLACE, requestor, property, content.type, 8, size,
                            content.bytes.constData());
        return;
    }
    const quint32 eventMask = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(xcb, requestor, XCB_CW_EVENT_MASK, &eventMask);
    setItems(requestor, property, m_connection.atom("INCR"), { size });
    m_transfers.removeIf([=](const Transfer &old) {
        return old.requestor == requestor && old.property == property;
    });
    m_transfers.append({ requestor, property, content });
}

/// The requestor has taken the last piece; one without bytes ends the transfer (section 2.7.2).
void X11SelectionOwner::sendPiece(quint32 requestor, quint32 property)
{
    const auto transfer
        = std::find_if(m_transfers.begin(), m_transfers.end(), [=](const Transfer &candidate) {
              return candidate.requestor == requestor && candidate.property == property;
          });
    if (transfer == m_transfers.end())
        return;
    const QByteArray piece = transfer->content.bytes.mid(transfer->sent, m_pieceSize);
    xcb_change_property(m_connection.xcb(), XCB_PROP_MODE_REPLACE, requestor, property,
                        transfer->content.type, 8, static_cast<quint32>(piece.size()),
                        piece.constData());
    transfer->sent += piece.size();
    if (piece.isEmpty())
        m_transfers.erase(transfer);
}

void X11SelectionOwner::forget(quint32 requestor)
{
    m_transfers.removeIf(
        [requestor](const Transfer &transfer) { return transfer.requestor == requestor; });
}

}
