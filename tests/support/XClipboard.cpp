// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "support/XClipboard.h"

#include "base/TextRules.h"
#include "platform/x11/X11SelectionTransfer.h"
#include "support/DisplayConnection.h"
#include "support/XcbSupport.h"

#include <QSocketNotifier>
#include <QTest>

#include <xcb/xfixes.h>

namespace Tessel::Desktop {

namespace {

constexpr int retryMs = 50;

int milliseconds(std::chrono::milliseconds timeout)
{
    return static_cast<int>(timeout.count());
}

}

class XClipboard::Private final
{
public:
    explicit Private(const QByteArray &display);

    [[nodiscard]] xcb_atom_t atomOf(Selection selection) const;
    // Handles what has arrived.
    void dispatch();

    Xcb::Connection connection;
    std::unique_ptr<X11Connection> reading; // null without a server
    xcb_window_t window = XCB_NONE;
    int changes[2] = {};
    QByteArray ownText[2];

private:
    void handle(const xcb_generic_event_t &event);
    void countChange(const xcb_xfixes_selection_notify_event_t &event);
    void serve(const xcb_selection_request_event_t &event);

    xcb_atom_t m_clipboard = XCB_NONE;
    xcb_atom_t m_utf8 = XCB_NONE;
    xcb_atom_t m_targets = XCB_NONE;
    quint8 m_firstFixesEvent = 0;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

XClipboard::Private::Private(const QByteArray &display)
    : connection(xcb_connect(display.constData(), nullptr))
    , reading(connectionTo(display))
{
    if (reading)
        reading->start();
    auto *c = connection.get();
    if (xcb_connection_has_error(c))
        return;
    m_clipboard = Xcb::atom(c, "CLIPBOARD");
    m_utf8 = Xcb::atom(c, "UTF8_STRING");
    m_targets = Xcb::atom(c, "TARGETS");
    window = xcb_generate_id(c);
    xcb_create_window(c, XCB_COPY_FROM_PARENT, window, Xcb::screen(c)->root, 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    const Xcb::Owned<xcb_xfixes_query_version_reply_t> version(
        xcb_xfixes_query_version_reply(c, xcb_xfixes_query_version(c, 5, 0), nullptr));
    m_firstFixesEvent = xcb_get_extension_data(c, &xcb_xfixes_id)->first_event;
    for (const auto selection : { Selection::Primary, Selection::Clipboard })
        xcb_xfixes_select_selection_input(
            c, window, atomOf(selection),
            XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER
                | XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY
                | XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    xcb_flush(c);
    m_notifier
        = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(c), QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(),
                     [this] { dispatch(); });
}

xcb_atom_t XClipboard::Private::atomOf(Selection selection) const
{
    return selection == Selection::Primary ? xcb_atom_t { XCB_ATOM_PRIMARY } : m_clipboard;
}

void XClipboard::Private::dispatch()
{
    auto *c = connection.get();
    while (const Xcb::Owned<xcb_generic_event_t> event { xcb_poll_for_event(c) })
        handle(*event);
    xcb_flush(c);
    if (m_notifier && xcb_connection_has_error(c))
        m_notifier->setEnabled(false);
}

void XClipboard::Private::handle(const xcb_generic_event_t &event)
{
    const void *data = &event;
    const auto type = event.response_type & 0x7f;
    if (type == m_firstFixesEvent + XCB_XFIXES_SELECTION_NOTIFY)
        countChange(*static_cast<const xcb_xfixes_selection_notify_event_t *>(data));
    else if (type == XCB_SELECTION_REQUEST)
        serve(*static_cast<const xcb_selection_request_event_t *>(data));
}

void XClipboard::Private::countChange(const xcb_xfixes_selection_notify_event_t &event)
{
    ++changes[event.selection == m_clipboard];
}

void XClipboard::Private::serve(const xcb_selection_request_event_t &request)
{
    auto *c = connection.get();
    const auto &text = ownText[request.selection == m_clipboard];
    xcb_selection_notify_event_t answer {};
    answer.response_type = XCB_SELECTION_NOTIFY;
    answer.time = request.time;
    answer.requestor = request.requestor;
    answer.selection = request.selection;
    answer.target = request.target;
    answer.property = request.property ? request.property : request.target;
    if (request.target == m_targets) {
        const xcb_atom_t offered[] = { m_targets, m_utf8 };
        xcb_change_property(c, XCB_PROP_MODE_REPLACE, request.requestor, answer.property,
                            XCB_ATOM_ATOM, 32, 2, offered);
    } else if (request.target == m_utf8) {
        xcb_change_property(c, XCB_PROP_MODE_REPLACE, request.requestor, answer.property, m_utf8, 8,
                            static_cast<uint32_t>(text.size()), text.constData());
    } else {
        answer.property = XCB_NONE;
    }
    xcb_send_event(c, 0, request.requestor, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char *>(&answer));
}

XClipboard::XClipboard(const QString &display)
    : d(std::make_unique<Private>(display.toLatin1()))
{
}

XClipboard::~XClipboard() = default;

quint32 XClipboard::owner(Selection selection) const
{
    auto *c = d->connection.get();
    const Xcb::Owned<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(
        c, xcb_get_selection_owner(c, d->atomOf(selection)), nullptr));
    return reply ? reply->owner : 0;
}

int XClipboard::changes(Selection selection)
{
    // The round trip brings in every change that the server has already reported.
    const auto current = owner(selection);
    Q_UNUSED(current);
    d->dispatch();
    return d->changes[selection == Selection::Clipboard];
}

bool XClipboard::waitForChange(int changesBefore, Selection selection,
                               std::chrono::milliseconds timeout)
{
    return QTest::qWaitFor([=, this] { return changes(selection) > changesBefore; },
                           milliseconds(timeout));
}

std::optional<QString> XClipboard::text(Selection selection, std::chrono::milliseconds timeout)
{
    if (!d->reading)
        return std::nullopt;
    std::optional<QByteArray> text;
    bool isDone = false;
    const X11SelectionTransfer transfer(*d->reading, d->atomOf(selection), timeout, timeout);
    QObject::connect(&transfer, &X11SelectionTransfer::finished, &transfer,
                     [&](const std::optional<QByteArray> &given) {
                         text = given;
                         isDone = true;
                     });
    if (!QTest::qWaitFor([&isDone] { return isDone; }, milliseconds(timeout)) || !text)
        return std::nullopt;
    return exactText(*text);
}

bool XClipboard::waitForText(const QString &expected, Selection selection,
                             std::chrono::milliseconds timeout)
{
    const QDeadlineTimer deadline(timeout);
    while (text(selection, std::chrono::milliseconds(deadline.remainingTime())) != expected) {
        if (deadline.hasExpired())
            return false;
        QTest::qWait(retryMs);
    }
    return true;
}

void XClipboard::setText(const QString &text, Selection selection)
{
    d->ownText[selection == Selection::Clipboard] = text.toUtf8();
    xcb_set_selection_owner(d->connection.get(), d->window, d->atomOf(selection), XCB_CURRENT_TIME);
    xcb_flush(d->connection.get());
}

}
