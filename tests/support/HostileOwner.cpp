// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
//
// A window that takes CLIPBOARD on any key with Control and then behaves as programs do that a
// clipboard reader has to survive:
//
//     hostile_owner MODE
//
//     nothing              never takes it
//     text TEXT            gives the text
//     never-answers        leaves every request unanswered
//     dies-while-sending   sends the first part of a transfer in parts (INCR) and exits
//     incr SIZE            sends SIZE bytes, a to z over and over, in parts
//     files                offers copied files, and their paths as text
//     secret               gives text as a password manager does, which marks it as secret
//     latin1-only          offers "café" as STRING (ISO 8859-1) alone
//     empty-first          gives no bytes at first, takes CLIPBOARD again and gives U+FEFF "late"
//
// Lines on standard output: "ready WINDOW" (decimal) once it can be seen, "key KEYSYM STATE" (hex,
// unshifted symbol and core modifier mask) for a key that it gets, "taken" when it takes CLIPBOARD,
// "asked TARGET" for a request.

#include "support/XcbSupport.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#include <unistd.h>

namespace {

using namespace Tessel::Desktop;

constexpr std::size_t partSize = 65536;

std::string alphabet(std::size_t size)
{
    std::string text(size, '\0');
    for (std::size_t i = 0; i < size; ++i)
        text[i] = static_cast<char>('a' + i % 26);
    return text;
}

template <typename... Arguments> void report(const char *format, Arguments... arguments)
{
    std::printf(format, arguments...);
    std::fflush(stdout);
}

class Owner final
{
public:
    Owner(const std::string &mode, const std::string &argument);
    void show();
    void run();

private:
    // A transfer in parts under way (ICCCM 2.7.2).
    struct Transfer
    {
        xcb_window_t requestor;
        xcb_atom_t property;
        std::size_t sent;
    };

    void handle(const xcb_generic_event_t *event);
    void onExposed();
    void onKey(const xcb_key_press_event_t &event);
    void onRequest(const xcb_selection_request_event_t &request);
    void onPartTaken(const xcb_property_notify_event_t &event);
    void take(xcb_timestamp_t time);
    [[nodiscard]] bool answer(const xcb_selection_request_event_t &request);
    void put(xcb_window_t window, xcb_atom_t property, xcb_atom_t type, int format,
             const void *data, std::size_t items);

    std::string m_mode;
    std::string m_text;
    Xcb::Connection m_connection;
    xcb_connection_t *m_c;
    xcb_window_t m_window = XCB_NONE;
    xcb_atom_t m_clipboard;
    xcb_atom_t m_targets;
    xcb_atom_t m_passwordHint;
    xcb_atom_t m_offered; // the one type of data that is given
    bool m_isReady = false;
    std::vector<Transfer> m_transfers;
};

Owner::Owner(const std::string &mode, const std::string &argument)
    : m_mode(mode)
    , m_text(argument)
    , m_connection(xcb_connect(nullptr, nullptr))
    , m_c(m_connection.get())
    , m_clipboard(Xcb::atom(m_c, "CLIPBOARD"))
    , m_targets(Xcb::atom(m_c, "TARGETS"))
    , m_passwordHint(Xcb::atom(m_c, "x-kde-passwordManagerHint"))
    , m_offered(mode == "latin1-only" ? xcb_atom_t { XCB_ATOM_STRING }
                                      : Xcb::atom(m_c, "UTF8_STRING"))
{
    if (mode == "incr")
        m_text = alphabet(std::strtoul(argument.c_str(), nullptr, 10));
    else if (mode == "dies-while-sending")
        m_text = alphabet(16 * partSize);
    else if (mode == "latin1-only")
        m_text = "caf\xe9";
    else if (mode == "files")
        m_text = "/a/path";
    else if (mode == "secret")
        m_text = "hunter2";
}

void Owner::show()
{
    const auto *screen = Xcb::screen(m_c);
    m_window = xcb_generate_id(m_c);
    const uint32_t values[]
        = { screen->white_pixel, XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_EXPOSURE };
    xcb_create_window(m_c, XCB_COPY_FROM_PARENT, m_window, screen->root, 0, 0, 300, 200, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                      XCB_CW_BACK_PIXEL | XCB_CW_EVENT_MASK, values);
    constexpr char classes[] = "HostileOwner\0HostileOwner";
    put(m_window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 8, classes, sizeof classes);
    const auto process = static_cast<uint32_t>(::getpid());
    put(m_window, Xcb::atom(m_c, "_NET_WM_PID"), XCB_ATOM_CARDINAL, 32, &process, 1);
    xcb_map_window(m_c, m_window);
    xcb_flush(m_c);
}

void Owner::run()
{
    while (const Xcb::Owned<xcb_generic_event_t> event { xcb_wait_for_event(m_c) }) {
        handle(event.get());
        xcb_flush(m_c);
    }
}

void Owner::handle(const xcb_generic_event_t *event)
{
    const void *data = event;
    switch (event->response_type & 0x7f) {
    case XCB_EXPOSE:
        return onExposed();
    case XCB_KEY_PRESS:
        return onKey(*static_cast<const xcb_key_press_event_t *>(data));
    case XCB_SELECTION_REQUEST:
        return onRequest(*static_cast<const xcb_selection_request_event_t *>(data));
    case XCB_PROPERTY_NOTIFY:
        return onPartTaken(*static_cast<const xcb_property_notify_event_t *>(data));
    default:
        return;
    }
}

void Owner::onExposed()
{
    if (std::exchange(m_isReady, true))
        return;
    // Without a window manager nobody else gives the focus.
    const auto check = Xcb::atom(m_c, "_NET_SUPPORTING_WM_CHECK");
    const Xcb::Owned<xcb_get_property_reply_t> manager(xcb_get_property_reply(
        m_c, xcb_get_property(m_c, 0, Xcb::screen(m_c)->root, check, XCB_ATOM_WINDOW, 0, 1),
        nullptr));
    if (!manager || manager->value_len == 0)
        xcb_set_input_focus(m_c, XCB_INPUT_FOCUS_PARENT, m_window, XCB_CURRENT_TIME);
    report("ready %u\n", m_window);
}

void Owner::onKey(const xcb_key_press_event_t &event)
{
    const Xcb::Owned<xcb_get_keyboard_mapping_reply_t> mapping(xcb_get_keyboard_mapping_reply(
        m_c, xcb_get_keyboard_mapping(m_c, event.detail, 1), nullptr));
    report("key %x %x\n", mapping ? *xcb_get_keyboard_mapping_keysyms(mapping.get()) : 0,
           static_cast<unsigned>(event.state));
    if (m_mode != "nothing" && event.state & XCB_MOD_MASK_CONTROL)
        take(event.time);
}

void Owner::take(xcb_timestamp_t time)
{
    xcb_set_selection_owner(m_c, m_window, m_clipboard, time);
    xcb_flush(m_c);
    report("taken\n");
}

void Owner::onRequest(const xcb_selection_request_event_t &request)
{
    const Xcb::Owned<xcb_get_atom_name_reply_t> name(
        xcb_get_atom_name_reply(m_c, xcb_get_atom_name(m_c, request.target), nullptr));
    if (name)
        report("asked %.*s\n", xcb_get_atom_name_name_length(name.get()),
               xcb_get_atom_name_name(name.get()));
    if (m_mode == "never-answers")
        return;
    xcb_selection_notify_event_t notify {};
    notify.response_type = XCB_SELECTION_NOTIFY;
    notify.time = request.time;
    notify.requestor = request.requestor;
    notify.selection = request.selection;
    notify.target = request.target;
    notify.property = answer(request) ? request.property : xcb_atom_t { XCB_NONE };
    xcb_send_event(m_c, 0, request.requestor, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char *>(&notify));
    if (m_mode == "empty-first" && request.target == m_offered && m_text.empty()) {
        m_text = "\uFEFFlate";
        take(XCB_CURRENT_TIME);
    }
}

// False when the request is refused.
bool Owner::answer(const xcb_selection_request_event_t &request)
{
    if (request.target == m_targets) {
        const xcb_atom_t targets[] = { m_targets, m_offered,
                                       m_mode == "files"        ? Xcb::atom(m_c, "text/uri-list")
                                           : m_mode == "secret" ? m_passwordHint
                                                                : m_offered };
        put(request.requestor, request.property, XCB_ATOM_ATOM, 32, targets, std::size(targets));
        return true;
    }
    if (m_mode == "secret" && request.target == m_passwordHint) {
        put(request.requestor, request.property, m_passwordHint, 8, "secret", 6);
        return true;
    }
    if (request.target != m_offered)
        return false;
    if (m_mode != "incr" && m_mode != "dies-while-sending") {
        put(request.requestor, request.property, m_offered, 8, m_text.data(), m_text.size());
        return true;
    }
    const uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(m_c, request.requestor, XCB_CW_EVENT_MASK, &events);
    const auto size = static_cast<uint32_t>(m_text.size());
    put(request.requestor, request.property, Xcb::atom(m_c, "INCR"), 32, &size, 1);
    m_transfers.push_back({ request.requestor, request.property, 0 });
    return true;
}

void Owner::onPartTaken(const xcb_property_notify_event_t &event)
{
    const auto transfer
        = std::find_if(m_transfers.begin(), m_transfers.end(), [&event](const Transfer &candidate) {
              return candidate.requestor == event.window && candidate.property == event.atom;
          });
    if (event.state != XCB_PROPERTY_DELETE || transfer == m_transfers.end())
        return;
    if (transfer->sent > 0 && m_mode == "dies-while-sending")
        std::exit(0);
    // A part without bytes ends the transfer.
    const std::size_t part = std::min(partSize, m_text.size() - transfer->sent);
    put(transfer->requestor, transfer->property, m_offered, 8, m_text.data() + transfer->sent,
        part);
    transfer->sent += part;
    if (part == 0)
        m_transfers.erase(transfer);
}

void Owner::put(xcb_window_t window, xcb_atom_t property, xcb_atom_t type, int format,
                const void *data, std::size_t items)
{
    xcb_change_property(m_c, XCB_PROP_MODE_REPLACE, window, property, type,
                        static_cast<uint8_t>(format), static_cast<uint32_t>(items), data);
}

}

int main(int argc, char *argv[])
{
    Owner owner(argc > 1 ? argv[1] : "", argc > 2 ? argv[2] : "");
    owner.show();
    owner.run();
    return 0;
}
