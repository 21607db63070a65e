// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/x11/X11FakeKeys.h"

#include "platform/x11/X11Connection.h"
#include "platform/x11/X11Modifiers.h"

#include <algorithm>
#include <xcb/xcb.h>
#include <xcb/xtest.h>

namespace Tessel {

void X11FakeKeys::liftHeldModifiers()
{
    lift(X11Modifiers::heldKeys(m_connection));
}

void X11FakeKeys::lift(const QList<quint8> &keys)
{
    for (const quint8 key : keys)
        send(XCB_KEY_RELEASE, key);
}

void X11FakeKeys::press(const QList<quint8> &keys)
{
    for (const quint8 key : keys)
        send(XCB_KEY_PRESS, key);
    std::for_each(keys.crbegin(), keys.crend(), [this](quint8 key) { send(XCB_KEY_RELEASE, key); });
    xcb_flush(m_connection.xcb());
}

void X11FakeKeys::send(quint8 type, quint8 key)
{
    xcb_test_fake_input(m_connection.xcb(), type, key, XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
}

}
