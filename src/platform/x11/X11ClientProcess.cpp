// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/x11/X11ClientProcess.h"

#include "platform/x11/X11Connection.h"

#include <xcb/res.h>
#include <xcb/xcb.h>

namespace Tessel {

qint64 x11ClientProcess(const X11Connection &connection, quint32 resource)
{
    xcb_connection_t *xcb = connection.xcb();
    const auto *extension = xcb_get_extension_data(xcb, &xcb_res_id);
    if (!resource || !extension || !extension->present)
        return 0;
    const xcb_res_client_id_spec_t wanted { resource, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID };
    const auto versionCookie = xcb_res_query_version(xcb, 1, 2);
    const auto cookie = xcb_res_query_client_ids(xcb, 1, &wanted);
    const XcbPtr<xcb_res_query_version_reply_t> version(
        xcb_res_query_version_reply(xcb, versionCookie, nullptr));
    const XcbPtr<xcb_res_query_client_ids_reply_t> reply(
        xcb_res_query_client_ids_reply(xcb, cookie, nullptr));
    if (!reply)
        return 0;
    const auto id = xcb_res_query_client_ids_ids_iterator(reply.get());
    const bool hasValue = id.rem > 0 && xcb_res_client_id_value_value_length(id.data) > 0;
    return hasValue ? *xcb_res_client_id_value_value(id.data) : 0;
}

}
