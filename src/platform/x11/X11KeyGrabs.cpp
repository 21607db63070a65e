// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/x11/X11KeyGrabs.h"

#include "platform/x11/X11Connection.h"

#include <map>
#include <vector>
#include <xcb/xcb.h>
#include <xcb/xinput.h>

namespace Tessel {

namespace {

constexpr quint32 grabbedEvents
    = XCB_INPUT_XI_EVENT_MASK_KEY_PRESS | XCB_INPUT_XI_EVENT_MASK_KEY_RELEASE;

/// One request serves all states of a key.
using StatesByKey = std::map<quint8, std::vector<quint32>>;

StatesByKey byKey(const QList<X11Stroke> &strokes)
{
    StatesByKey states;
    for (const X11Stroke &stroke : strokes)
        states[stroke.key].push_back(stroke.modifiers);
    return states;
}

quint16 masterKeyboard(const X11Connection &connection)
{
    xcb_connection_t *xcb = connection.xcb();
    const XcbPtr<xcb_input_xi_query_device_reply_t> devices(xcb_input_xi_query_device_reply(
        xcb, xcb_input_xi_query_device(xcb, XCB_INPUT_DEVICE_ALL_MASTER), nullptr));
    if (!devices)
        return 0;
    for (auto device = xcb_input_xi_query_device_infos_iterator(devices.get()); device.rem > 0;
         xcb_input_xi_device_info_next(&device)) {
        if (device.data->type == XCB_INPUT_DEVICE_TYPE_MASTER_KEYBOARD)
            return device.data->deviceid;
    }
    return 0;
}

}

class X11KeyGrabs::Taken final : public Hold
{
public:
    Taken(X11KeyGrabs &grabs, const QList<X11Stroke> &wanted, Handler callback)
        : handler(std::move(callback))
        , m_grabs(grabs)
        , m_wanted(wanted.size())
    {
        for (const X11Stroke &stroke : wanted) {
            if (!grabs.holds(stroke))
                strokes += stroke;
        }
        xcb_connection_t *xcb = grabs.m_connection.xcb();
        for (const auto &[key, states] : byKey(strokes))
            m_answers[key] = xcb_input_xi_passive_grab_device(
                xcb, XCB_CURRENT_TIME, grabs.m_connection.root(), XCB_NONE, key, grabs.m_keyboard,
                static_cast<uint16_t>(states.size()), 1, XCB_INPUT_GRAB_TYPE_KEYCODE,
                XCB_INPUT_GRAB_MODE_22_ASYNC, XCB_INPUT_GRAB_MODE_22_ASYNC,
                XCB_INPUT_GRAB_OWNER_NO_OWNER, &grabbedEvents, states.data());
        xcb_flush(xcb);
        grabs.m_taken += this;
    }
    ~Taken() override
    {
        xcb_connection_t *xcb = m_grabs.m_connection.xcb();
        for (const auto &[key, answer] : m_answers)
            xcb_discard_reply(xcb, answer.sequence);
        for (const auto &[key, states] : byKey(strokes))
            xcb_input_xi_passive_ungrab_device(
                xcb, m_grabs.m_connection.root(), key, m_grabs.m_keyboard,
                static_cast<uint16_t>(states.size()), XCB_INPUT_GRAB_TYPE_KEYCODE, states.data());
        xcb_flush(xcb);
        m_grabs.m_taken.removeOne(this);
        if (m_grabs.m_active == this)
            m_grabs.m_active = nullptr;
    }
    Q_DISABLE_COPY_MOVE(Taken)

    [[nodiscard]] bool isComplete() override
    {
        for (const auto &[key, answer] : std::exchange(m_answers, {}))
            removeRefused(key, answer);
        return strokes.size() == m_wanted && !isGrabbedByCoreClient();
    }

    /// Grabs of the core protocol, which most programs use, and ours do not see each other: whoever
    /// grabs last gets the key. Only a grab of the same kind is refused.
    [[nodiscard]] bool isGrabbedByCoreClient() const
    {
        xcb_connection_t *xcb = m_grabs.m_connection.xcb();
        const quint32 root = m_grabs.m_connection.root();
        QList<xcb_void_cookie_t> attempts;
        for (const X11Stroke &stroke : strokes)
            attempts += xcb_grab_key_checked(xcb, 1, root, stroke.modifiers, stroke.key,
                                             XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
        bool isRefused = false;
        for (const xcb_void_cookie_t attempt : attempts)
            isRefused |= XcbPtr<xcb_generic_error_t>(xcb_request_check(xcb, attempt)) != nullptr;
        for (const X11Stroke &stroke : strokes)
            xcb_ungrab_key(xcb, stroke.key, root, stroke.modifiers);
        xcb_flush(xcb);
        return isRefused;
    }

    QList<X11Stroke> strokes; ///< those that are ours
    Handler handler;

private:
    using Cookie = xcb_input_xi_passive_grab_device_cookie_t;

    void removeRefused(quint8 key, Cookie answer)
    {
        const XcbPtr<xcb_input_xi_passive_grab_device_reply_t> reply(
            xcb_input_xi_passive_grab_device_reply(m_grabs.m_connection.xcb(), answer, nullptr));
        if (!reply) {
            strokes.removeIf([key](const X11Stroke &one) { return one.key == key; });
            return;
        }
        const auto *refused = xcb_input_xi_passive_grab_device_modifiers(reply.get());
        for (int i = 0; i < reply->num_modifiers; ++i)
            strokes.removeOne({ key, static_cast<quint8>(refused[i].modifiers) });
    }

    X11KeyGrabs &m_grabs;
    qsizetype m_wanted;
    std::map<quint8, Cookie> m_answers; ///< that nobody has asked for yet
};

X11KeyGrabs::X11KeyGrabs(X11Connection &connection)
    : m_connection(connection)
{
    if (!connection.xinput().present)
        return;
    m_keyboard = masterKeyboard(connection);
    m_subscription = connection.subscribe([this](const X11Event &event) { handle(event); });
}

X11KeyGrabs::~X11KeyGrabs() = default;

std::unique_ptr<X11KeyGrabs::Hold> X11KeyGrabs::take(const QList<X11Stroke> &strokes,
                                                     Handler handler)
{
    if (!m_keyboard)
        return nullptr;
    return std::make_unique<Taken>(*this, strokes, std::move(handler));
}

bool X11KeyGrabs::holds(const X11Stroke &stroke) const
{
    return std::any_of(m_taken.cbegin(), m_taken.cend(),
                       [&stroke](const Taken *taken) { return taken->strokes.contains(stroke); });
}

void X11KeyGrabs::giveKeyboardBack()
{
    m_active = nullptr;
    xcb_input_xi_ungrab_device(m_connection.xcb(), XCB_CURRENT_TIME, m_keyboard);
    xcb_flush(m_connection.xcb());
}

void X11KeyGrabs::handle(const X11Event &event)
{
    if (event.type() != XCB_GE_GENERIC)
        return;
    const auto &key = event.as<xcb_input_key_press_event_t>();
    const bool isPress = key.event_type == XCB_INPUT_KEY_PRESS;
    if (key.extension != m_connection.xinput().majorOpcode
        || (!isPress && key.event_type != XCB_INPUT_KEY_RELEASE))
        return;
    // What else is pressed while one of our keys is down comes to us, too.
    const X11Stroke stroke { static_cast<quint8>(key.detail),
                             static_cast<quint8>(key.mods.effective) };
    if (isPress) {
        const auto taken = std::find_if(m_taken.cbegin(), m_taken.cend(), [&](const Taken *one) {
            return one->strokes.contains(stroke);
        });
        if (taken != m_taken.cend())
            m_active = *taken;
        else if (!m_active)
            return;
    }
    if (!m_active)
        return;
    const bool isRepeat = key.flags & XCB_INPUT_KEY_EVENT_FLAGS_KEY_REPEAT;
    const auto handler = m_active->handler; // which may end the hold
    handler(stroke, !isPress ? Change::release : isRepeat ? Change::repeat : Change::press);
}

QList<X11Stroke> inAllLockStates(const X11Stroke &stroke, quint8 locks)
{
    QList<X11Stroke> strokes;
    quint8 state = locks;
    for (;;) { // all subsets of the locks, from all to none
        strokes += { stroke.key, static_cast<quint8>(stroke.modifiers | state) };
        if (state == 0)
            return strokes;
        state = (state - 1) & locks;
    }
}

}
