// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/x11/X11SelectionWatch.h"

#include "platform/x11/X11Connection.h"

#include <xcb/xcb.h>
#include <xcb/xfixes.h>

namespace Tessel {

X11SelectionWatch::X11SelectionWatch(X11Connection &connection, quint32 selection, Handler changed)
{
    if (!connection.xfixes().present)
        return;
    xcb_xfixes_select_selection_input(connection.xcb(), connection.root(), selection,
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER
                                          | XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY
                                          | XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    const int type = connection.xfixes().firstEvent + XCB_XFIXES_SELECTION_NOTIFY;
    m_subscription = connection.subscribe(
        [type, selection, changed = std::move(changed)](const X11Event &event) {
            if (event.type() != type)
                return;
            const auto &notify = event.as<xcb_xfixes_selection_notify_event_t>();
            if (notify.selection == selection)
                changed(notify.owner, notify.timestamp);
        });
}

}
