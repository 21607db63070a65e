// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/x11/X11PopupKeyboard.h"

#include "base/KeyCodes.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/X11CurrentLayout.h"

#include <QGuiApplication>
#include <QKeyEvent>

#include <xcb/screensaver.h>
#include <xcb/xcb.h>
// A member's name in this C header.
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit

using namespace std::chrono_literals;

namespace Tessel {

namespace {

constexpr auto maxIdle = 60s;

constexpr quint8 locks = XCB_MOD_MASK_LOCK | XCB_MOD_MASK_2 | XCB_MOD_MASK_3;

/// All ways to press a key that a popup could want. A held AltGr, Alt or Super makes other keys of
/// them, which belong to others.
QList<X11Stroke> strokesOf(quint8 key)
{
    return inAllLockStates({ key }, locks) + inAllLockStates({ key, XCB_MOD_MASK_SHIFT }, locks)
        + inAllLockStates({ key, XCB_MOD_MASK_CONTROL }, locks);
}

void flushQt()
{
    if (const auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>())
        xcb_flush(x11->connection());
}

}

X11PopupKeyboard::X11PopupKeyboard(const Services &services)
    : m_services(services)
    , m_windowManager(services.connection)
{
    m_idle.setSingleShot(true);
    connect(&m_idle, &QTimer::timeout, this, &X11PopupKeyboard::releaseHeldKeyboard);
    connect(&m_sessionLock, &SessionLock::locked, this, &X11PopupKeyboard::sessionLocked);
    connect(this, &X11PopupKeyboard::sessionLocked, this, &X11PopupKeyboard::releaseHeldKeyboard);

    X11Connection &connection = services.connection;
    m_rootEvents = connection.listenToRoot(XCB_EVENT_MASK_PROPERTY_CHANGE);
    m_subscription = connection.subscribe([this](const X11Event &event) { handle(event); });
    const auto *screenSaver = xcb_get_extension_data(connection.xcb(), &xcb_screensaver_id);
    if (screenSaver && screenSaver->present) {
        m_screenSaverEvent = screenSaver->first_event;
        xcb_screensaver_select_input(connection.xcb(), connection.root(),
                                     XCB_SCREENSAVER_EVENT_NOTIFY_MASK);
    }
}

void X11PopupKeyboard::handle(const X11Event &event)
{
    if (event.type() == XCB_PROPERTY_NOTIFY && m_keyboardWindow) {
        const auto &notify = event.as<xcb_property_notify_event_t>();
        X11Connection &connection = m_services.connection;
        if (notify.window != connection.root()
            || notify.atom != connection.atom("_NET_ACTIVE_WINDOW"))
            return;
        // Window managers may say that there is none while the keyboard is grabbed.
        const quint32 active = m_windowManager.activeWindow();
        if (active && active != m_activeWindow)
            releaseHeldKeyboard();
    } else if (event.type() == m_services.connection.xkb().firstEvent && m_keysWindow) {
        const auto &notify = event.as<xcb_xkb_state_notify_event_t>();
        if (notify.xkbType == XCB_XKB_STATE_NOTIFY && (notify.lockedMods & locks) != m_locks)
            grabWantedKeys(notify.lockedMods);
    } else if (m_screenSaverEvent && event.type() == m_screenSaverEvent) {
        const auto &notify = event.as<xcb_screensaver_notify_event_t>();
        if (notify.state == XCB_SCREENSAVER_STATE_ON)
            Q_EMIT sessionLocked();
    }
}

void X11PopupKeyboard::takeKeys(QWindow *window, const Wants &wants)
{
    QTimer::singleShot(0, &m_sessionLock, &SessionLock::start);
    if (!m_services.layout.get())
        return; // without XKB
    m_keysWindow = window;
    m_wants = wants;
    xcb_connection_t *xcb = m_services.connection.xcb();
    const XcbPtr<xcb_xkb_get_state_reply_t> state(
        xcb_xkb_get_state_reply(xcb, xcb_xkb_get_state(xcb, XCB_XKB_ID_USE_CORE_KBD), nullptr));
    grabWantedKeys(state ? state->lockedMods : 0);
}

/// Only with the locks as they are: for all their states the server would take milliseconds.
void X11PopupKeyboard::grabWantedKeys(quint8 lockedModifiers)
{
    prepare();
    m_keys.reset();
    m_locks = lockedModifiers & locks;
    QList<X11Stroke> wanted;
    for (const auto &[stroke, key] : std::as_const(m_keyboard)) {
        if ((stroke.modifiers & locks) == m_locks && m_wants(key))
            wanted += stroke;
    }
    m_keys = m_services.grabs.take(
        wanted,
        [this](const X11Stroke &stroke, X11KeyGrabs::Change change) { deliver(stroke, change); });
}

void X11PopupKeyboard::prepare()
{
    const X11KeyLayout *layout = m_services.layout.get();
    if (!layout || m_keyboardRevision == m_services.layout.revision())
        return;
    m_keyboardRevision = m_services.layout.revision();
    m_keyboard.clear();
    for (quint32 key = 8; key <= 255; ++key) {
        const auto keyCode = KeyCodes::virtualFromScanCode(key);
        if (!keyCode)
            continue;
        for (const X11Stroke &stroke : strokesOf(static_cast<quint8>(key))) {
            const bool isCommand = stroke.modifiers & XCB_MOD_MASK_CONTROL;
            const QString text = layout->text(stroke.key, stroke.modifiers);
            m_keyboard.append({ stroke, { *keyCode, text, isCommand } });
        }
    }
}

void X11PopupKeyboard::releaseKeys(QWindow *window)
{
    if (m_keysWindow != window)
        return;
    m_keys.reset();
    m_keysWindow.clear();
}

void X11PopupKeyboard::deliver(const X11Stroke &stroke, X11KeyGrabs::Change change)
{
    const X11KeyLayout *layout = m_services.layout.get();
    if (!m_keysWindow || !layout)
        return;
    Qt::KeyboardModifiers modifiers;
    modifiers.setFlag(Qt::ShiftModifier, stroke.modifiers & XCB_MOD_MASK_SHIFT);
    modifiers.setFlag(Qt::ControlModifier, stroke.modifiers & XCB_MOD_MASK_CONTROL);
    const bool isRelease = change == X11KeyGrabs::Change::release;
    QKeyEvent event(isRelease ? QEvent::KeyRelease : QEvent::KeyPress, Qt::Key_unknown, modifiers,
                    stroke.key, 0, stroke.modifiers, layout->text(stroke.key, stroke.modifiers),
                    change == X11KeyGrabs::Change::repeat);
    QCoreApplication::sendEvent(m_keysWindow, &event);
}

bool X11PopupKeyboard::takeKeyboard(QWindow *window)
{
    QTimer::singleShot(0, &m_sessionLock, &SessionLock::start);
    if (window->setKeyboardGrabEnabled(true)) {
        m_keyboardWindow = window;
        m_activeWindow = m_windowManager.activeWindow();
        m_idle.start(maxIdle);
    }
    return m_keyboardWindow == window;
}

void X11PopupKeyboard::releaseKeyboard(QWindow *window)
{
    if (m_keyboardWindow != window)
        return;
    window->setKeyboardGrabEnabled(false);
    flushQt(); // which may just have sent what it had and be about to wait for events
    m_keyboardWindow.clear();
    m_idle.stop();
}

void X11PopupKeyboard::releaseHeldKeyboard()
{
    if (m_keyboardWindow)
        releaseKeyboard(m_keyboardWindow);
}

bool X11PopupKeyboard::holdsKeyboard() const
{
    return m_keyboardWindow && m_keyboardWindow->isVisible();
}

}
