// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "lib/desktop/DisplayConnection.h"

namespace Tessel {

X11Connection *DisplayConnection::connection()
{
    if (!m_connection && m_error.isEmpty()) {
        m_connection = X11Connection::open(&m_error);
        if (m_connection)
            m_connection->start();
    }
    return m_connection.get();
}

}
