// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "support/WaylandDesktop.h"

#include <linux/input-event-codes.h>

using namespace Qt::StringLiterals;

namespace Tessel::Desktop {

bool WaylandDesktop::setUser(std::unique_ptr<User> user)
{
    m_user = std::move(user);
    if (!m_user->isConnected())
        return fail(u"no hands in the compositor"_s);
    // The first key of a seat that had no keyboard is lost.
    m_user->tap(KEY_LEFTSHIFT);
    return true;
}

}
