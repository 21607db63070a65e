// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/x11/X11Connection.h"

#include <QAbstractEventDispatcher>
#include <QSocketNotifier>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <xcb/xcb.h>
#include <xcb/xfixes.h>
#include <xcb/xinput.h>
// A member's name in this C header.
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit
#include <xcb/xtest.h>

using namespace Qt::StringLiterals;

namespace Tessel {

void FreeDeleter::operator()(void *memory) const
{
    std::free(memory);
}

namespace {

X11Connection::Extension extension(xcb_connection_t *connection, xcb_extension_t *id)
{
    const auto *data = xcb_get_extension_data(connection, id);
    if (!data || !data->present)
        return {};
    return { true, data->major_opcode, data->first_event };
}

bool isAtLeast(int major, int minor, int wantedMajor, int wantedMinor)
{
    return major > wantedMajor || (major == wantedMajor && minor >= wantedMinor);
}

}

bool X11Connection::isOffered()
{
    return !qEnvironmentVariableIsEmpty("DISPLAY");
}

Result<std::unique_ptr<X11Connection>> X11Connection::open()
{
    int screenNumber = 0;
    xcb_connection_t *connection = xcb_connect(nullptr, &screenNumber);
    if (xcb_connection_has_error(connection)) {
        xcb_disconnect(connection);
        return Failure { u"The X server at DISPLAY=%1 does not answer."_s.arg(
            qEnvironmentVariable("DISPLAY")) };
    }
    return std::unique_ptr<X11Connection>(new X11Connection(connection, screenNumber));
}

X11Connection::X11Connection(xcb_connection_t *connection, int screenNumber)
    : m_connection(connection)
    , m_screenNumber(screenNumber)
{
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (int i = 0; i < screenNumber && screens.rem > 1; ++i)
        xcb_screen_next(&screens);
    m_root = screens.data->root;
    queryExtensions();
}

X11Connection::~X11Connection()
{
    xcb_disconnect(m_connection);
}

void X11Connection::queryExtensions()
{
    for (auto *id : { &xcb_xfixes_id, &xcb_input_id, &xcb_xkb_id, &xcb_test_id })
        xcb_prefetch_extension_data(m_connection, id);
    m_xfixes = extension(m_connection, &xcb_xfixes_id);
    m_xinput = extension(m_connection, &xcb_input_id);
    m_xkb = extension(m_connection, &xcb_xkb_id);
    m_xtest = extension(m_connection, &xcb_test_id);

    // A request of an extension that the server lacks would close the connection.
    if (m_xfixes.present)
        XcbPtr<xcb_xfixes_query_version_reply_t>(xcb_xfixes_query_version_reply(
            m_connection, xcb_xfixes_query_version(m_connection, 5, 0), nullptr));
    if (m_xkb.present) {
        const XcbPtr<xcb_xkb_use_extension_reply_t> xkb(xcb_xkb_use_extension_reply(
            m_connection, xcb_xkb_use_extension(m_connection, 1, 0), nullptr));
        m_xkb.present = xkb && xkb->supported;
    }
    if (m_xinput.present) {
        const XcbPtr<xcb_input_xi_query_version_reply_t> xinput(xcb_input_xi_query_version_reply(
            m_connection, xcb_input_xi_query_version(m_connection, 2, 2), nullptr));
        m_xinput.present = xinput && isAtLeast(xinput->major_version, xinput->minor_version, 2, 1);
    }
}

void X11Connection::start()
{
    if (m_notifier)
        return;
    m_notifier
        = new QSocketNotifier(xcb_get_file_descriptor(m_connection), QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, [this] { dispatch(Source::socket); });
    // Waiting for a reply may queue events without leaving the socket readable.
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
            [this] { dispatch(Source::queue); });
    dispatch(Source::socket);
}

std::shared_ptr<void> X11Connection::subscribe(Handler handler)
{
    auto token = std::make_shared<Handler>(std::move(handler));
    m_handlers.push_back(token);
    return token;
}

std::shared_ptr<void> X11Connection::listenToRoot(quint32 eventMask)
{
    m_rootEvents += eventMask;
    selectRootEvents();
    return { nullptr, [this, eventMask](void *) {
                m_rootEvents.removeOne(eventMask);
                selectRootEvents();
            } };
}

void X11Connection::selectRootEvents()
{
    quint32 all = XCB_EVENT_MASK_NO_EVENT;
    for (const quint32 eventMask : std::as_const(m_rootEvents))
        all |= eventMask;
    xcb_change_window_attributes(m_connection, m_root, XCB_CW_EVENT_MASK, &all);
    xcb_flush(m_connection);
}

void X11Connection::dispatch(Source source)
{
    const auto next = source == Source::socket ? xcb_poll_for_event : xcb_poll_for_queued_event;
    while (const XcbPtr<xcb_generic_event_t> event { next(m_connection) }) {
        m_handlers.remove_if([](const auto &handler) { return handler.expired(); });
        for (const auto &weak : m_handlers) {
            if (const auto handler = weak.lock())
                (*handler)(X11Event(event.get()));
        }
    }
    xcb_flush(m_connection);
    if (xcb_connection_has_error(m_connection))
        m_notifier->setEnabled(false); // Qt's own connection ends the program
}

quint32 X11Connection::atom(const char *name) const
{
    const QByteArray key(name);
    if (const auto known = m_atoms.constFind(key); known != m_atoms.constEnd())
        return *known;
    const XcbPtr<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        m_connection,
        xcb_intern_atom(m_connection, 0, static_cast<uint16_t>(key.size()), key.constData()),
        nullptr));
    const quint32 atom = reply ? reply->atom : quint32(XCB_ATOM_NONE);
    m_atoms.insert(key, atom);
    return atom;
}

QByteArray X11Connection::property(quint32 window, quint32 atom, quint32 maxBytes) const
{
    const XcbPtr<xcb_get_property_reply_t> reply(xcb_get_property_reply(
        m_connection,
        xcb_get_property(m_connection, 0, window, atom, XCB_GET_PROPERTY_TYPE_ANY, 0, maxBytes / 4),
        nullptr));
    if (!reply)
        return {};
    return { static_cast<const char *>(xcb_get_property_value(reply.get())),
             xcb_get_property_value_length(reply.get()) };
}

QList<quint32> X11Connection::items(quint32 window, quint32 atom) const
{
    const QByteArray bytes = property(window, atom);
    QList<quint32> items(bytes.size() / 4);
    if (!items.isEmpty()) // an empty list has no memory
        std::memcpy(items.data(), bytes.constData(), static_cast<std::size_t>(items.size()) * 4);
    return items;
}

void X11Connection::sendMessage(quint32 destination, quint32 eventMask, quint32 window,
                                const char *type, const std::array<quint32, 5> &data)
{
    xcb_client_message_event_t event = {};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = atom(type);
    std::copy(data.begin(), data.end(), event.data.data32);
    xcb_send_event(m_connection, 0, destination, eventMask, reinterpret_cast<const char *>(&event));
    xcb_flush(m_connection);
}

quint32 X11Connection::selectionOwner(quint32 selection) const
{
    const XcbPtr<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(
        m_connection, xcb_get_selection_owner(m_connection, selection), nullptr));
    return reply ? reply->owner : quint32(XCB_NONE);
}

quint32 X11Connection::createWindow() const
{
    const quint32 window = xcb_generate_id(m_connection);
    const quint32 eventMask = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(m_connection, 0, window, m_root, -1, -1, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                      XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &eventMask);
    return window;
}

bool X11Connection::isSameClient(quint32 first, quint32 second) const
{
    const quint32 clientBits = ~xcb_get_setup(m_connection)->resource_id_mask;
    return first && second && (first & clientBits) == (second & clientBits);
}

}
