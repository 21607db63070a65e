// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/X11Connection.h"
#include "support/XUser.h"
#include "support/XcbSupport.h"

namespace Tessel::Desktop {

class XUser::Private final
{
public:
    explicit Private(const QByteArray &display);

    [[nodiscard]] Xcb::Owned<xcb_query_pointer_reply_t> pointer() const;
    void fakeKey(bool down, quint8 keycode);
    void fakePointer(quint8 type, quint8 detail, const QPoint &position = {});
    // Returns when the server has handled every request made so far.
    void sync() const;

    [[nodiscard]] quint32 number(quint32 window, const char *property) const;
    [[nodiscard]] QList<quint32> children(quint32 window) const;
    // The client window inside a frame; 0 when there is none.
    [[nodiscard]] quint32 clientInside(quint32 window, int depth = 3) const;
    [[nodiscard]] WindowInfo describe(quint32 window) const;

    std::unique_ptr<X11Connection> x11; // null without a server
    xcb_connection_t *connection = nullptr;
    xcb_screen_t *screen = nullptr;

private:
    void findKeyboard();

    quint8 m_keyPressType = XCB_KEY_PRESS;
    quint8 m_keyReleaseType = XCB_KEY_RELEASE;
    quint8 m_keyboard = 0; // 0: the XTEST keyboard
};

}
