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

}
