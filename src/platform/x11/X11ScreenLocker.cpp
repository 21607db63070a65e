// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/x11/X11ScreenLocker.h"

#include "platform/x11/X11Connection.h"

#include <algorithm>
#include <xcb/xcb.h>

namespace Tessel {

namespace {

/// Asking for it is the only way to learn that. Who has the focus sees it go for a moment.
bool isKeyboardGrabbed(const X11Connection &connection)
{
    xcb_connection_t *xcb = connection.xcb();
    const XcbPtr<xcb_grab_keyboard_reply_t> grab(
        xcb_grab_keyboard_reply(xcb,
                                xcb_grab_keyboard(xcb, 1, connection.root(), XCB_CURRENT_TIME,
                                                  XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC),
                                nullptr));
    if (grab && grab->status == XCB_GRAB_STATUS_SUCCESS) {
        xcb_ungrab_keyboard(xcb, XCB_CURRENT_TIME);
        xcb_flush(xcb);
    }
    return grab && grab->status == XCB_GRAB_STATUS_ALREADY_GRABBED;
}

/// Frames of managed windows are among them. All requests go out together.
bool isCoveredByUnmanagedWindow(const X11Connection &connection, const QList<QRect> &screens)
{
    xcb_connection_t *xcb = connection.xcb();
    const XcbPtr<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(xcb, xcb_query_tree(xcb, connection.root()), nullptr));
    if (!tree)
        return false;
    struct Cookies
    {
        xcb_get_window_attributes_cookie_t attributes;
        xcb_get_geometry_cookie_t geometry;
    };
    QList<Cookies> cookies;
    const xcb_window_t *windows = xcb_query_tree_children(tree.get());
    for (int i = 0; i < xcb_query_tree_children_length(tree.get()); ++i) {
        cookies.append(
            { xcb_get_window_attributes(xcb, windows[i]), xcb_get_geometry(xcb, windows[i]) });
    }
    bool isCovered = false;
    for (const Cookies &cookie : std::as_const(cookies)) {
        const XcbPtr<xcb_get_window_attributes_reply_t> attributes(
            xcb_get_window_attributes_reply(xcb, cookie.attributes, nullptr));
        const XcbPtr<xcb_get_geometry_reply_t> place(
            xcb_get_geometry_reply(xcb, cookie.geometry, nullptr));
        if (!attributes || !place || !attributes->override_redirect
            || attributes->map_state != XCB_MAP_STATE_VIEWABLE)
            continue;
        const QRect window(place->x, place->y, place->width, place->height);
        isCovered |= std::any_of(screens.begin(), screens.end(), [&window](const QRect &screen) {
            return window.contains(screen);
        });
    }
    return isCovered;
}

}

bool isCoveredByLocker(const X11Connection &connection, const QList<QRect> &screens)
{
    return isCoveredByUnmanagedWindow(connection, screens) && isKeyboardGrabbed(connection);
}

}
