// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "support/XUser.h"

#include "support/XUserPrivate.h"

#include <xcb/xinput.h>
#include <xcb/xtest.h>
#include <xkbcommon/xkbcommon-x11.h>
#include <xkbcommon/xkbcommon.h>

using namespace Qt::StringLiterals;

namespace Tessel::Desktop {

namespace {

struct KeyPosition
{
    quint8 keycode = 0;
    xkb_level_index_t level = 0;
};

std::optional<KeyPosition> findKey(xkb_keymap *keymap, xkb_keysym_t keysym,
                                   xkb_layout_index_t group, xkb_level_index_t levels)
{
    for (xkb_level_index_t level = 0; level < levels; ++level) {
        for (auto key = xkb_keymap_min_keycode(keymap); key <= xkb_keymap_max_keycode(keymap);
             ++key) {
            const xkb_keysym_t *symbols = nullptr;
            const int count = xkb_keymap_key_get_syms_by_level(keymap, key, group, level, &symbols);
            if (count == 1 && symbols[0] == keysym)
                return KeyPosition { static_cast<quint8>(key), level };
        }
    }
    return std::nullopt;
}

// The modifier keys to hold for a level of the usual four-level key types.
QList<quint32> levelModifiers(xkb_level_index_t level)
{
    QList<quint32> held;
    if (level & 1)
        held << XKB_KEY_Shift_L;
    if (level & 2)
        held << XKB_KEY_ISO_Level3_Shift;
    return held;
}

xkb_keysym_t keysymOf(char32_t character)
{
    return character == U'\n' ? XKB_KEY_Return : xkb_utf32_to_keysym(character);
}

}

XUser::Private::Private(const QByteArray &display)
    : connection(xcb_connect(display.constData(), nullptr))
    , m_context(xkb_context_new(XKB_CONTEXT_NO_FLAGS))
{
    if (xcb_connection_has_error(connection.get()))
        return;
    screen = Xcb::screen(connection.get());
    xkb_x11_setup_xkb_extension(connection.get(), XKB_X11_MIN_MAJOR_XKB_VERSION,
                                XKB_X11_MIN_MINOR_XKB_VERSION, XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS,
                                nullptr, nullptr, nullptr, nullptr);
    findKeyboard();
}

// XTEST can act for any device when it is given the device's number and an event type of version 1
// of the X Input Extension: first event + 1 is a key press there, + 2 a key release.
void XUser::Private::findKeyboard()
{
    auto *c = connection.get();
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

Keymap XUser::Private::keymap() const
{
    const auto device = xkb_x11_get_core_keyboard_device_id(connection.get());
    return Keymap(xkb_x11_keymap_new_from_device(m_context.get(), connection.get(), device,
                                                 XKB_KEYMAP_COMPILE_NO_FLAGS));
}

int XUser::Private::activeGroup() const
{
    // The core protocol carries the XKB group in bits 13 and 14 of the state (XKB protocol, 11).
    const auto reply = pointer();
    return reply ? (reply->mask >> 13) & 3 : 0;
}

std::optional<quint8> XUser::Private::keycode(quint32 keysym) const
{
    const auto map = keymap();
    const auto key = map
        ? findKey(map.get(), keysym, static_cast<xkb_layout_index_t>(activeGroup()), 1)
        : std::nullopt;
    return key ? std::optional(key->keycode) : std::nullopt;
}

Xcb::Owned<xcb_query_pointer_reply_t> XUser::Private::pointer() const
{
    auto *c = connection.get();
    return Xcb::Owned<xcb_query_pointer_reply_t>(
        xcb_query_pointer_reply(c, xcb_query_pointer(c, screen->root), nullptr));
}

void XUser::Private::fakeKey(bool down, quint8 keycode)
{
    xcb_test_fake_input(connection.get(), down ? m_keyPressType : m_keyReleaseType, keycode,
                        XCB_CURRENT_TIME, XCB_NONE, 0, 0, m_keyboard);
    sync();
}

void XUser::Private::fakePointer(quint8 type, quint8 detail, const QPoint &position)
{
    xcb_test_fake_input(connection.get(), type, detail, XCB_CURRENT_TIME, screen->root,
                        static_cast<int16_t>(position.x()), static_cast<int16_t>(position.y()), 0);
    sync();
}

void XUser::Private::sync() const
{
    auto *c = connection.get();
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
    return !xcb_connection_has_error(d->connection.get());
}

bool XUser::press(quint32 keysym)
{
    const auto key = d->keycode(keysym);
    if (key)
        d->fakeKey(true, *key);
    return key.has_value();
}

bool XUser::release(quint32 keysym)
{
    const auto key = d->keycode(keysym);
    if (key)
        d->fakeKey(false, *key);
    return key.has_value();
}

bool XUser::tap(quint32 keysym, const QList<quint32> &held)
{
    QList<quint8> keys;
    for (const auto symbol : held + QList<quint32> { keysym }) {
        const auto key = d->keycode(symbol);
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
    const auto keymap = d->keymap();
    const auto group = static_cast<xkb_layout_index_t>(d->activeGroup());
    for (const auto character : text.toStdU32String()) {
        const auto key
            = keymap ? findKey(keymap.get(), keysymOf(character), group, 4) : std::nullopt;
        if (!key)
            return false;
        const auto held = levelModifiers(key->level);
        for (const auto modifier : held)
            press(modifier);
        d->fakeKey(true, key->keycode);
        d->fakeKey(false, key->keycode);
        for (const auto modifier : held)
            release(modifier);
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
}

void XUser::pressButton(int button)
{
    d->fakePointer(XCB_BUTTON_PRESS, static_cast<quint8>(button));
}

void XUser::releaseButton(int button)
{
    d->fakePointer(XCB_BUTTON_RELEASE, static_cast<quint8>(button));
}

void XUser::click(const QPoint &position, int count, int button)
{
    movePointer(position);
    for (; count > 0; --count) {
        pressButton(button);
        releaseButton(button);
    }
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
    auto *c = d->connection.get();
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
    xcb_connection_t *c = d->connection.get();
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
