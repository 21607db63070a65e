// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "support/XUser.h"
#include "support/XcbSupport.h"

#include <xkbcommon/xkbcommon.h>

namespace Tessel::Desktop {

struct KeymapDeleter
{
    void operator()(xkb_keymap *keymap) const { xkb_keymap_unref(keymap); }
};

struct ContextDeleter
{
    void operator()(xkb_context *context) const { xkb_context_unref(context); }
};

using Keymap = std::unique_ptr<xkb_keymap, KeymapDeleter>;

class XUser::Private final
{
public:
    explicit Private(const QByteArray &display);

    // The layout can change at any time, so the keymap is fetched for each use.
    [[nodiscard]] Keymap keymap() const;
    [[nodiscard]] int activeGroup() const;
    // The key that gives the keysym unshifted in the active group.
    [[nodiscard]] std::optional<quint8> keycode(quint32 keysym) const;
    [[nodiscard]] Xcb::Owned<xcb_query_pointer_reply_t> pointer() const;
    void fakeKey(bool down, quint8 keycode);
    void fakePointer(quint8 type, quint8 detail, const QPoint &position = {});
    // Returns when the server has handled every request made so far.
    void sync() const;

    [[nodiscard]] Xcb::Owned<xcb_get_property_reply_t> property(quint32 window,
                                                                const char *name) const;
    [[nodiscard]] QList<quint32> children(quint32 window) const;
    // The client window inside a frame; 0 when there is none.
    [[nodiscard]] quint32 clientInside(quint32 window, int depth = 3) const;
    [[nodiscard]] WindowInfo describe(quint32 window) const;

    Xcb::Connection connection;
    xcb_screen_t *screen = nullptr;

private:
    void findKeyboard();

    std::unique_ptr<xkb_context, ContextDeleter> m_context;
    quint8 m_keyPressType = XCB_KEY_PRESS;
    quint8 m_keyReleaseType = XCB_KEY_RELEASE;
    quint8 m_keyboard = 0; // 0: the XTEST keyboard
};

}
