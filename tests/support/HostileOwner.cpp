// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
//
// A window that takes CLIPBOARD on Ctrl+C (or Ctrl+Insert) and then behaves as programs do that a
// clipboard reader has to survive:
//
//     hostile_owner [--class NAME] MODE
//
//     text TEXT            gives the text
//     never-answers        leaves every request unanswered
//     dies-while-sending   sends the first part of a transfer in parts (INCR) and exits
//     stalls               sends the first part and never another
//     incr SIZE            sends SIZE bytes, a to z over and over, in parts
//     image-only           offers image/png alone
//     latin1-only          offers "café" as STRING (ISO 8859-1) alone
//     changes-its-mind     refuses the first request for text, takes CLIPBOARD again, gives "second"
//     empty-first          gives no bytes, takes CLIPBOARD again 150 ms later, gives "late"
//
// Lines on standard output: "ready WINDOW" once it can be seen, "key KEYCODE STATE" for a key that
// it gets, "taken" when it takes CLIPBOARD, "asked TARGET" for a request, "lost" when another
// program takes CLIPBOARD. Keys, window and state are decimal.

#include "support/XcbSupport.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <poll.h>
#include <unistd.h>

#include <xkbcommon/xkbcommon-keysyms.h>

namespace {

using namespace Tessel::Desktop;
using Clock = std::chrono::steady_clock;

enum class Mode {
    Text,
    NeverAnswers,
    DiesWhileSending,
    Stalls,
    Incr,
    ImageOnly,
    Latin1Only,
    ChangesItsMind,
    EmptyFirst,
};

struct NamedMode
{
    const char *name;
    Mode mode;
    bool hasArgument;
};

constexpr NamedMode modes[] = {
    { "text", Mode::Text, true },
    { "never-answers", Mode::NeverAnswers, false },
    { "dies-while-sending", Mode::DiesWhileSending, false },
    { "stalls", Mode::Stalls, false },
    { "incr", Mode::Incr, true },
    { "image-only", Mode::ImageOnly, false },
    { "latin1-only", Mode::Latin1Only, false },
    { "changes-its-mind", Mode::ChangesItsMind, false },
    { "empty-first", Mode::EmptyFirst, false },
};

constexpr std::size_t partSize = 65536;
constexpr std::size_t endlessSize = 16 * partSize;
constexpr std::chrono::milliseconds lateBy { 150 };
// A picture of one black pixel.
constexpr unsigned char png[] = {
    0x89, 'P',  'N',  'G',  '\r', '\n', 0x1a, '\n', 0,    0,    0,    13,   'I',  'H',
    'D',  'R',  0,    0,    0,    1,    0,    0,    0,    1,    8,    0,    0,    0,
    0,    0x3a, 0x7e, 0x9b, 0x55, 0,    0,    0,    10,   'I',  'D',  'A',  'T',  0x78,
    0x9c, 0x63, 0x60, 0,    0,    0,    2,    0,    1,    0x48, 0xaf, 0xa4, 0x71, 0,
    0,    0,    0,    'I',  'E',  'N',  'D',  0xae, 0x42, 0x60, 0x82,
};

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
    Owner(Mode mode, const std::string &argument);
    [[nodiscard]] bool show(const std::string &className);
    void run();

private:
    // A transfer in parts under way (ICCCM 2.7.2).
    struct Transfer
    {
        xcb_window_t requestor;
        xcb_atom_t property;
        xcb_atom_t type;
        std::size_t sent;
    };

    void handle(const xcb_generic_event_t *event);
    void onExposed();
    void onKey(const xcb_key_press_event_t &event);
    void onRequest(const xcb_selection_request_event_t &event);
    void onPartTaken(const xcb_property_notify_event_t &event);
    [[nodiscard]] bool isCopyKey(xcb_keycode_t keycode) const;
    void take(xcb_timestamp_t time);
    [[nodiscard]] bool answer(const xcb_selection_request_event_t &request);
    void offerTargets(const xcb_selection_request_event_t &request);
    void startTransfer(const xcb_selection_request_event_t &request);
    void put(xcb_window_t window, xcb_atom_t property, xcb_atom_t type, int format,
             const void *data, std::size_t items);
    [[nodiscard]] bool sendsParts() const;
    [[nodiscard]] std::string atomName(xcb_atom_t atom) const;

    Mode m_mode;
    std::string m_text;
    Xcb::Connection m_connection;
    xcb_connection_t *m_c = nullptr;
    xcb_window_t m_window = XCB_NONE;
    xcb_atom_t m_clipboard = XCB_NONE;
    xcb_atom_t m_targets = XCB_NONE;
    xcb_atom_t m_incr = XCB_NONE;
    xcb_atom_t m_offered = XCB_NONE; // the one type of data that is given
    bool m_isReady = false;
    int m_timesTaken = 0;
    std::optional<Clock::time_point> m_takeAgainAt;
    std::vector<Transfer> m_transfers;
};

Owner::Owner(Mode mode, const std::string &argument)
    : m_mode(mode)
    , m_text(argument)
    , m_connection(xcb_connect(nullptr, nullptr))
    , m_c(m_connection.get())
{
    if (mode == Mode::Incr)
        m_text = alphabet(std::strtoul(argument.c_str(), nullptr, 10));
    else if (mode == Mode::DiesWhileSending || mode == Mode::Stalls)
        m_text = alphabet(endlessSize);
    else if (mode == Mode::ImageOnly)
        m_text.assign(std::begin(png), std::end(png));
    else if (mode == Mode::Latin1Only)
        m_text = "caf\xe9";
    else if (mode == Mode::ChangesItsMind)
        m_text = "second";
}

bool Owner::show(const std::string &className)
{
    if (xcb_connection_has_error(m_c))
        return false;
    m_clipboard = Xcb::atom(m_c, "CLIPBOARD");
    m_targets = Xcb::atom(m_c, "TARGETS");
    m_incr = Xcb::atom(m_c, "INCR");
    m_offered = m_mode == Mode::ImageOnly ? Xcb::atom(m_c, "image/png")
        : m_mode == Mode::Latin1Only      ? xcb_atom_t { XCB_ATOM_STRING }
                                          : Xcb::atom(m_c, "UTF8_STRING");
    const auto *screen = Xcb::screen(m_c);
    m_window = xcb_generate_id(m_c);
    const uint32_t values[]
        = { screen->white_pixel, XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_EXPOSURE };
    xcb_create_window(m_c, XCB_COPY_FROM_PARENT, m_window, screen->root, 0, 0, 300, 200, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                      XCB_CW_BACK_PIXEL | XCB_CW_EVENT_MASK, values);
    const std::string classes = className + '\0' + className + '\0';
    put(m_window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 8, classes.data(), classes.size());
    put(m_window, XCB_ATOM_WM_NAME, XCB_ATOM_STRING, 8, className.data(), className.size());
    const auto process = static_cast<uint32_t>(::getpid());
    put(m_window, Xcb::atom(m_c, "_NET_WM_PID"), XCB_ATOM_CARDINAL, 32, &process, 1);
    xcb_map_window(m_c, m_window);
    return xcb_flush(m_c) > 0;
}

void Owner::run()
{
    pollfd descriptor { xcb_get_file_descriptor(m_c), POLLIN, 0 };
    while (!xcb_connection_has_error(m_c)) {
        while (const Xcb::Owned<xcb_generic_event_t> event { xcb_poll_for_event(m_c) })
            handle(event.get());
        if (m_takeAgainAt && Clock::now() >= *m_takeAgainAt) {
            m_takeAgainAt.reset();
            m_text = "late";
            take(XCB_CURRENT_TIME);
        }
        xcb_flush(m_c);
        ::poll(&descriptor, 1, m_takeAgainAt ? 10 : -1);
    }
}

void Owner::handle(const xcb_generic_event_t *event)
{
    const void *data = event;
    switch (event->response_type & 0x7f) {
    case XCB_EXPOSE:
        onExposed();
        break;
    case XCB_KEY_PRESS:
        onKey(*static_cast<const xcb_key_press_event_t *>(data));
        break;
    case XCB_SELECTION_REQUEST:
        onRequest(*static_cast<const xcb_selection_request_event_t *>(data));
        break;
    case XCB_SELECTION_CLEAR:
        report("lost\n");
        break;
    case XCB_PROPERTY_NOTIFY:
        onPartTaken(*static_cast<const xcb_property_notify_event_t *>(data));
        break;
    default:
        break;
    }
}

void Owner::onExposed()
{
    if (std::exchange(m_isReady, true))
        return;
    // Without a window manager nobody else gives the focus.
    const auto check = Xcb::atom(m_c, "_NET_SUPPORTING_WM_CHECK");
    if (Xcb::number(Xcb::property(m_c, Xcb::screen(m_c)->root, check).get()) == 0)
        xcb_set_input_focus(m_c, XCB_INPUT_FOCUS_PARENT, m_window, XCB_CURRENT_TIME);
    report("ready %u\n", m_window);
}

void Owner::onKey(const xcb_key_press_event_t &event)
{
    report("key %u %u\n", unsigned { event.detail }, event.state & 0xffU);
    if ((event.state & XCB_MOD_MASK_CONTROL) && isCopyKey(event.detail))
        take(event.time);
}

bool Owner::isCopyKey(xcb_keycode_t keycode) const
{
    const Xcb::Owned<xcb_get_keyboard_mapping_reply_t> mapping(
        xcb_get_keyboard_mapping_reply(m_c, xcb_get_keyboard_mapping(m_c, keycode, 1), nullptr));
    if (!mapping)
        return false;
    const auto *first = xcb_get_keyboard_mapping_keysyms(mapping.get());
    const auto *end = first + xcb_get_keyboard_mapping_keysyms_length(mapping.get());
    return std::any_of(first, end, [](xcb_keysym_t keysym) {
        return keysym == XKB_KEY_c || keysym == XKB_KEY_Insert;
    });
}

void Owner::take(xcb_timestamp_t time)
{
    ++m_timesTaken;
    xcb_set_selection_owner(m_c, m_window, m_clipboard, time);
    xcb_flush(m_c);
    report("taken\n");
    if (m_mode == Mode::EmptyFirst && m_timesTaken == 1)
        m_takeAgainAt = Clock::now() + lateBy;
}

void Owner::onRequest(const xcb_selection_request_event_t &request)
{
    report("asked %s\n", atomName(request.target).c_str());
    if (m_mode == Mode::NeverAnswers)
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
    if (m_mode == Mode::ChangesItsMind && request.target != m_targets && m_timesTaken == 1)
        take(XCB_CURRENT_TIME);
}

// False when the request is refused.
bool Owner::answer(const xcb_selection_request_event_t &request)
{
    if (request.target == m_targets) {
        offerTargets(request);
        return true;
    }
    if (request.target != m_offered || (m_mode == Mode::ChangesItsMind && m_timesTaken == 1))
        return false;
    if (sendsParts())
        startTransfer(request);
    else
        put(request.requestor, request.property, m_offered, 8, m_text.data(), m_text.size());
    return true;
}

void Owner::offerTargets(const xcb_selection_request_event_t &request)
{
    const xcb_atom_t targets[] = { m_targets, m_offered };
    put(request.requestor, request.property, XCB_ATOM_ATOM, 32, targets, std::size(targets));
}

bool Owner::sendsParts() const
{
    return m_mode == Mode::Incr || m_mode == Mode::DiesWhileSending || m_mode == Mode::Stalls;
}

void Owner::startTransfer(const xcb_selection_request_event_t &request)
{
    const uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(m_c, request.requestor, XCB_CW_EVENT_MASK, &events);
    const auto size = static_cast<uint32_t>(m_text.size());
    put(request.requestor, request.property, m_incr, 32, &size, 1);
    m_transfers.push_back({ request.requestor, request.property, request.target, 0 });
}

void Owner::onPartTaken(const xcb_property_notify_event_t &event)
{
    const auto transfer
        = std::find_if(m_transfers.begin(), m_transfers.end(), [&event](const Transfer &candidate) {
              return candidate.requestor == event.window && candidate.property == event.atom;
          });
    if (event.state != XCB_PROPERTY_DELETE || transfer == m_transfers.end())
        return;
    if (transfer->sent > 0 && m_mode == Mode::Stalls)
        return;
    if (transfer->sent > 0 && m_mode == Mode::DiesWhileSending)
        std::exit(0);
    // A part without bytes ends the transfer.
    const std::size_t part = std::min(partSize, m_text.size() - transfer->sent);
    put(transfer->requestor, transfer->property, transfer->type, 8, m_text.data() + transfer->sent,
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

std::string Owner::atomName(xcb_atom_t atom) const
{
    const Xcb::Owned<xcb_get_atom_name_reply_t> reply(
        xcb_get_atom_name_reply(m_c, xcb_get_atom_name(m_c, atom), nullptr));
    return reply ? std::string(xcb_get_atom_name_name(reply.get()),
                               static_cast<std::size_t>(xcb_get_atom_name_name_length(reply.get())))
                 : std::string();
}

}

int main(int argc, char *argv[])
{
    std::vector<std::string> arguments(argv + 1, argv + argc);
    std::string className = "HostileOwner";
    if (arguments.size() > 2 && arguments[0] == "--class") {
        className = arguments[1];
        arguments.erase(arguments.begin(), arguments.begin() + 2);
    }
    const auto *named
        = std::find_if(std::begin(modes), std::end(modes), [&](const NamedMode &mode) {
              return !arguments.empty() && arguments[0] == mode.name
                  && arguments.size() == (mode.hasArgument ? 2U : 1U);
          });
    if (named == std::end(modes)) {
        std::fputs("usage: hostile_owner [--class NAME] MODE [TEXT | SIZE]\n", stderr);
        return 2;
    }
    Owner owner(named->mode, named->hasArgument ? arguments[1] : std::string());
    if (!owner.show(className)) {
        std::fputs("hostile_owner: cannot open the display\n", stderr);
        return 1;
    }
    owner.run();
    return 0;
}
