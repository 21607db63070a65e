// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/x11/X11EventMonitor.h"

#include "base/KeyCodes.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/X11FakeKeys.h"
#include "platform/x11/X11Modifiers.h"

#include <QGuiApplication>
#include <QWindow>

#include <xcb/xcb.h>
#include <xcb/xinput.h>
// A member's name in this C header.
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit

namespace Tessel {

namespace {

/// From the raw event of a key that is ours to its press; they leave the server together.
constexpr std::chrono::milliseconds grabbedPressLimit { 50 };
constexpr quint32 leftButton = 1;
constexpr quint32 firstScrollButton = 4;
constexpr quint32 lastScrollButton = 7;

/// Whether one of our own windows has the focus. Of a popup with the keyboard Qt believes that,
/// even after it has given the keyboard back.
bool hasFocus()
{
    const QWindow *window = QGuiApplication::focusWindow();
    return window && !window->flags().testFlag(Qt::BypassWindowManagerHint);
}

}

X11EventMonitor::X11EventMonitor(X11Connection &connection, X11KeyGrabs &grabs,
                                 std::function<bool()> popupHasKeyboard,
                                 std::function<void()> pressedElsewhere)
    : m_connection(connection)
    , m_grabs(grabs)
    , m_trigger(connection, grabs,
                [this] {
                    m_patience.stop();
                    const KeyChord &trigger = m_trigger.chord();
                    deliver({ InputEvent::Kind::keyDown, trigger.keyCode, trigger.modifiers });
                })
    , m_popupHasKeyboard(std::move(popupHasKeyboard))
    , m_pressedElsewhere(std::move(pressedElsewhere))
{
    if (!connection.xinput().present || !connection.xkb().present)
        return;
    m_patience.setSingleShot(true);
    connect(&m_patience, &QTimer::timeout, this, &X11EventMonitor::missTrigger);
    selectEvents();
    m_subscription = connection.subscribe([this](const X11Event &event) { handle(event); });
}

std::unique_ptr<EventMonitor::Subscription>
X11EventMonitor::addGlobalMonitor(InputEvent::Kinds kinds, Handler handler)
{
    if (!m_subscription)
        return nullptr;
    return m_handlers.add(kinds, std::move(handler));
}

void X11EventMonitor::start()
{
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this,
            [this] { updateTrigger([this] { m_trigger.setWatching(!hasFocus()); }); });
}

void X11EventMonitor::setTrigger(const KeyChord &chord)
{
    updateTrigger([this, &chord] { m_trigger.set(chord); });
}

template <typename Change> void X11EventMonitor::updateTrigger(Change change)
{
    const bool wasShared = m_trigger.isShared();
    change();
    if (m_trigger.isShared() != wasShared)
        Q_EMIT triggerRouteChanged();
}

void X11EventMonitor::selectEvents()
{
    struct
    {
        xcb_input_event_mask_t head;
        quint32 mask;
    } raw = { { XCB_INPUT_DEVICE_ALL_MASTER, 1 },
              XCB_INPUT_XI_EVENT_MASK_RAW_KEY_PRESS | XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS
                  | XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_RELEASE };
    xcb_input_xi_select_events(m_connection.xcb(), m_connection.root(), 1, &raw.head);

    constexpr quint16 modifierState = XCB_XKB_STATE_PART_MODIFIER_STATE;
    xcb_xkb_select_events_details_t details = {};
    details.affectState = modifierState;
    details.stateDetails = modifierState;
    xcb_xkb_select_events_aux(m_connection.xcb(), XCB_XKB_ID_USE_CORE_KBD,
                              XCB_XKB_EVENT_TYPE_STATE_NOTIFY, 0, 0, 0, 0, &details);
    const XcbPtr<xcb_xkb_get_state_reply_t> state(xcb_xkb_get_state_reply(
        m_connection.xcb(), xcb_xkb_get_state(m_connection.xcb(), XCB_XKB_ID_USE_CORE_KBD),
        nullptr));
    if (state)
        m_modifiers = state->mods;
}

void X11EventMonitor::handle(const X11Event &event)
{
    const int type = event.type();
    if (type == XCB_GE_GENERIC) {
        handleRaw(event);
    } else if (type == m_connection.xkb().firstEvent) {
        // All XKB events share one code; the second byte tells them apart.
        const auto &notify = event.as<xcb_xkb_state_notify_event_t>();
        if (notify.xkbType == XCB_XKB_STATE_NOTIFY)
            m_modifiers = notify.mods;
    }
}

void X11EventMonitor::handleRaw(const X11Event &event)
{
    // The raw key and button events have one layout.
    const auto &raw = event.as<xcb_input_raw_key_press_event_t>();
    if (raw.extension != m_connection.xinput().majorOpcode)
        return;
    if (raw.event_type == XCB_INPUT_RAW_KEY_PRESS)
        handleRawKey(static_cast<quint8>(raw.detail));
    else if (raw.event_type == XCB_INPUT_RAW_BUTTON_PRESS)
        handleRawPress(raw.detail);
    else if (raw.detail == leftButton && !m_isLeftPressOurs)
        deliver({ InputEvent::Kind::leftMouseUp, -1, X11Modifiers::bits(m_modifiers) });
}

/// A window that gets the press gets the release as well, wherever the pointer is then.
void X11EventMonitor::handleRawPress(quint32 button)
{
    const bool isOurs = isPointerOverOwnWindow();
    if (button == leftButton)
        m_isLeftPressOurs = isOurs;
    if (isOurs)
        return;
    if (button >= firstScrollButton && button <= lastScrollButton)
        deliver({ InputEvent::Kind::scrollWheel, -1, X11Modifiers::bits(m_modifiers) });
    else
        m_pressedElsewhere();
}

/// Of the keys that are grabbed only the grab tells: while another client, such as a screen locker,
/// has the whole keyboard, they are meant for that one.
void X11EventMonitor::handleRawKey(quint8 key)
{
    if (hasFocus() || m_popupHasKeyboard())
        return;
    const KeyChord pressed { KeyCodes::virtualFromScanCode(key).value_or(-1),
                             X11Modifiers::bits(m_modifiers) };
    const bool isGrabbed = m_grabs.holds({ key, m_modifiers });
    // No application acts on these alone.
    const bool isIdle = KeyCodes::isModifierOrLock(key) || KeyCodes::isMediaKey(key);
    if (pressed == m_trigger.chord() && isGrabbed) {
        m_expectedKey = key;
        m_patience.start(grabbedPressLimit);
    } else if (pressed == m_trigger.chord()) {
        deliverShared(key);
    } else if (!isGrabbed && !isIdle) {
        deliver({ InputEvent::Kind::keyDown, pressed.keyCode, pressed.modifiers });
    }
}

/// Another client has the whole keyboard, or has grabbed the trigger after us.
void X11EventMonitor::missTrigger()
{
    updateTrigger([this] { m_trigger.retry(); });
    if (m_trigger.isShared())
        deliverShared(m_expectedKey);
}

/// While the key is down, all keys go to the client that has grabbed it.
void X11EventMonitor::deliverShared(quint8 key)
{
    X11FakeKeys(m_connection).lift({ key });
    const KeyChord &trigger = m_trigger.chord();
    deliver({ InputEvent::Kind::keyDown, trigger.keyCode, trigger.modifiers });
    updateTrigger([this] { m_trigger.retry(); });
}

bool X11EventMonitor::isPointerOverOwnWindow() const
{
    QList<quint32> own;
    for (const QWindow *window : QGuiApplication::topLevelWindows()) {
        if (window->isVisible() && window->handle())
            own.append(static_cast<quint32>(window->winId()));
    }
    // From the root down: a window manager puts our managed windows into frames of its own.
    quint32 window = own.isEmpty() ? quint32(XCB_NONE) : m_connection.root();
    while (window != XCB_NONE) {
        if (own.contains(window))
            return true;
        const XcbPtr<xcb_query_pointer_reply_t> pointer(xcb_query_pointer_reply(
            m_connection.xcb(), xcb_query_pointer(m_connection.xcb(), window), nullptr));
        window = pointer ? pointer->child : quint32(XCB_NONE);
    }
    return false;
}

}
