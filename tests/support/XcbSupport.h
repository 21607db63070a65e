// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <memory>
#include <string>

#include <xcb/xcb.h>

// Owners for what libxcb hands out, for the test support's own sources.
namespace Tessel::Desktop::Xcb {

struct FreeDeleter
{
    void operator()(void *block) const { std::free(block); }
};

struct Disconnecter
{
    void operator()(xcb_connection_t *connection) const { xcb_disconnect(connection); }
};

template <typename T> using Owned = std::unique_ptr<T, FreeDeleter>;
using Connection = std::unique_ptr<xcb_connection_t, Disconnecter>;

// XCB_NONE when the server is gone.
[[nodiscard]] inline xcb_atom_t atom(xcb_connection_t *connection, const std::string &name)
{
    const auto cookie
        = xcb_intern_atom(connection, 0, static_cast<uint16_t>(name.size()), name.data());
    const Owned<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection, cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t { XCB_ATOM_NONE };
}

[[nodiscard]] inline xcb_screen_t *screen(xcb_connection_t *connection)
{
    return xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
}

[[nodiscard]] inline Owned<xcb_get_property_reply_t> property(xcb_connection_t *connection,
                                                              xcb_window_t window, xcb_atom_t name)
{
    const auto cookie
        = xcb_get_property(connection, 0, window, name, XCB_GET_PROPERTY_TYPE_ANY, 0, 1 << 24);
    return Owned<xcb_get_property_reply_t>(xcb_get_property_reply(connection, cookie, nullptr));
}

[[nodiscard]] inline std::string bytes(const xcb_get_property_reply_t *reply)
{
    if (!reply)
        return {};
    return std::string(static_cast<const char *>(xcb_get_property_value(reply)),
                       static_cast<std::size_t>(xcb_get_property_value_length(reply)));
}

// The first 32-bit item of a property; 0 when there is none.
[[nodiscard]] inline uint32_t number(const xcb_get_property_reply_t *reply)
{
    if (!reply || reply->format != 32 || xcb_get_property_value_length(reply) < 4)
        return 0;
    return *static_cast<const uint32_t *>(xcb_get_property_value(reply));
}

}
