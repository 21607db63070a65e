// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/X11Connection.h"

#include <QString>

namespace Tessel {

/// The connection to the X server, made when somebody first needs it: most scripts do not.
class DisplayConnection final
{
public:
    /// Null when there is no display; error() then says why.
    [[nodiscard]] X11Connection *connection();
    [[nodiscard]] QString error() const { return m_error; }

private:
    std::unique_ptr<X11Connection> m_connection;
    QString m_error;
};

}
