// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "lib/desktop/DisplayConnection.h"

namespace Tessel {

Result<HelperPlatform *> DisplayConnection::platform()
{
    if (!m_platform)
        m_platform.emplace(makeHelperPlatform());
    const auto &connected = *m_platform;
    if (!connected)
        return connected.error();
    return connected->get();
}

}
