// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "support/XUser.h"

#include "support/XUserPrivate.h"

#include "platform/x11/X11KeyLayout.h"
#include "support/DisplayConnection.h"

#include <xcb/xinput.h>
#include <xcb/xtest.h>
#include <xkbcommon/xkbcommon.h>

using namespace Qt::StringLiterals;

namespace Tessel::Desktop {

namespace {

xkb_keysym_t keysymOf(char32_t character)
{
    return character == U'\n' ? XKB_KEY_Return : xkb_utf32_to_keysym(character);
}

// The layout can change at any time, so it is fetched for each use.
std::optional<quint8> keycode(const X11Connection &connection, quint32 keysym)
{
    const auto layout = X11KeyLayout::read(connection);
    return layout ? layout->key(keysym) : std::nullopt;
}

}

XUser::Private::Private(const QByteArray &display)
{
    x11 = connectionTo(display);
    if (!x11)
        return;
    connection = x11->xcb();
    screen = Xcb::screen(connection);
    findKeyboard();
}

// XTEST can act for any device when it is given the device's number and an event type of version 1
// of the X Input Extension: first event + 1 is a key press there, + 2 a key release.
void XUser::Private::findKeyboard()
{
    auto *c = connection;
    const Xcb::Owned<xcb_input_xi_query_version_reply_t> version(
        xcb_input_xi_query_version_reply(c, xcb_input_xi_query_version(c, 2, 2), nullptr));
    const Xcb::Owned<xcb_input_xi_query_device_reply_t> devices(xcb_input_xi_query_device_reply(
        c, xcb_input_xi_query_device(c, XCB_INPUT_DEVICE_ALL), nullptr));
    const auto *extension = xcb_get_extension_data(c, &xcb_input_id);
    if (!version || !devices || !extension)
        return;
    for (auto device = xcb_input_xi_query_device_infos_iterator(devices.get()); device.rem;
         xcb_input_xi_device_info_next(&device)) {
        const QByteArray name(xcb_input_xi_device_info_name(device.data), device.data->name_len);
        if (device.data->type != XCB_INPUT_DEVICE_TYPE_SLAVE_KEYBOARD || name.contains("XTEST"))
            continue;
        m_keyboard = static_cast<quint8>(device.data->deviceid);
        m_keyPressType = static_cast<quint8>(extension->first_event + 1);
        m_keyReleaseType = static_cast<quint8>(extension->first_event + 2);
        return;
    }
}

Xcb::Owned<xcb_query_pointer_reply_t> XUser::Private::pointer() const
{
    auto *c = connection;
    return Xcb::Owned<xcb_query_pointer_reply_t>(
        xcb_query_pointer_reply(c, xcb_query_pointer(c, screen->root), nullptr));
}

void XUser::Private::fakeKey(bool down, quint8 keycode)
{
    xcb_test_fake_input(connection, down ? m_keyPressType : m_keyReleaseType, keycode,
                        XCB_CURRENT_TIME, XCB_NONE, 0, 0, m_keyboard);
    sync();
}

void XUser::Private::fakePointer(quint8 type, quint8 detail, const QPoint &position)
{
    xcb_test_fake_input(connection, type, detail, XCB_CURRENT_TIME, screen->root,
                        static_cast<int16_t>(position.x()), static_cast<int16_t>(position.y()), 0);
}

void XUser::Private::sync() const
{
    auto *c = connection;
    const Xcb::Owned<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(c, xcb_get_input_focus(c), nullptr));
}

XUser::XUser(const QString &display)
    : d(std::make_unique<Private>(display.toLatin1()))
{
}

XUser::~XUser() = default;

bool XUser::isConnected() const
{
    return d->x11 && !xcb_connection_has_error(d->connection);
}

bool XUser::press(quint32 keysym)
{
    const auto key = keycode(*d->x11, keysym);
    if (key)
        d->fakeKey(true, *key);
    return key.has_value();
}

bool XUser::release(quint32 keysym)
{
    const auto key = keycode(*d->x11, keysym);
    if (key)
        d->fakeKey(false, *key);
    return key.has_value();
}

bool XUser::tap(quint32 keysym, const QList<quint32> &held)
{
    QList<quint8> keys;
    for (const auto symbol : held + QList<quint32> { keysym }) {
        const auto key = keycode(*d->x11, symbol);
        if (!key)
            return false;
        keys << *key;
    }
    for (const auto key : std::as_const(keys))
        d->fakeKey(true, key);
    while (!keys.isEmpty())
        d->fakeKey(false, keys.takeLast());
    return true;
}

bool XUser::typeText(const QString &text)
{
    for (const auto character : text.toStdU32String()) {
        const auto layout = X11KeyLayout::read(*d->x11);
        const auto stroke = layout ? layout->stroke(keysymOf(character)) : std::nullopt;
        if (!stroke)
            return false;
        if (stroke->shift)
            press(XKB_KEY_Shift_L);
        d->fakeKey(true, stroke->key);
        d->fakeKey(false, stroke->key);
        if (stroke->shift)
            release(XKB_KEY_Shift_L);
    }
    return true;
}

void XUser::releaseAllKeys()
{
    for (const auto key : pressedKeycodes())
        d->fakeKey(false, key);
}

void XUser::movePointer(const QPoint &position)
{
    d->fakePointer(XCB_MOTION_NOTIFY, 0, position);
    d->sync();
}

void XUser::pressButton(int button)
{
    d->fakePointer(XCB_BUTTON_PRESS, static_cast<quint8>(button));
    d->sync();
}

void XUser::releaseButton(int button)
{
    d->fakePointer(XCB_BUTTON_RELEASE, static_cast<quint8>(button));
    d->sync();
}

void XUser::click(const QPoint &position, int count, int button)
{
    movePointer(position);
    // At once, so that clicks which belong together are that on a busy machine as well.
    for (; count > 0; --count) {
        d->fakePointer(XCB_BUTTON_PRESS, static_cast<quint8>(button));
        d->fakePointer(XCB_BUTTON_RELEASE, static_cast<quint8>(button));
    }
    d->sync();
}

void XUser::scroll(int steps)
{
    const int button = steps > 0 ? XCB_BUTTON_INDEX_5 : XCB_BUTTON_INDEX_4;
    for (int step = 0; step < std::abs(steps); ++step) {
        pressButton(button);
        releaseButton(button);
    }
}

QList<quint8> XUser::pressedKeycodes() const
{
    auto *c = d->connection;
    const Xcb::Owned<xcb_query_keymap_reply_t> reply(
        xcb_query_keymap_reply(c, xcb_query_keymap(c), nullptr));
    QList<quint8> pressed;
    for (int key = 0; reply && key < 256; ++key) {
        if (reply->keys[key / 8] & (1 << (key % 8)))
            pressed << static_cast<quint8>(key);
    }
    return pressed;
}

quint8 XUser::modifiers() const
{
    const auto reply = d->pointer();
    return reply ? static_cast<quint8>(reply->mask & 0xff) : 0;
}

bool XUser::isKeyboardGrabbed() const
{
    xcb_connection_t *c = d->connection;
    const Xcb::Owned<xcb_grab_keyboard_reply_t> reply(
        xcb_grab_keyboard_reply(c,
                                xcb_grab_keyboard(c, 1, d->screen->root, XCB_CURRENT_TIME,
                                                  XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC),
                                nullptr));
    if (reply && reply->status == XCB_GRAB_STATUS_SUCCESS)
        xcb_ungrab_keyboard(c, XCB_CURRENT_TIME);
    d->sync();
    return reply && reply->status == XCB_GRAB_STATUS_ALREADY_GRABBED;
}

}
