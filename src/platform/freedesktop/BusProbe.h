// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Descriptor.h"

#include <QByteArray>

namespace Tessel {

/// Finds out whether a message bus is awake, by beginning to connect to it as any client does
/// (D-Bus Specification, "Authentication Protocol").
class BusProbe final
{
public:
    /// `address`: as the environment has it, a list.
    explicit BusProbe(const QByteArray &address);

    /// So many wait for the bus that it has to be tried again.
    [[nodiscard]] bool isCrowded() const { return m_isCrowded; }

    /// Readable once the bus has answered; not valid where there is nothing to wait for: nobody
    /// listens, or the address is of another kind than a local socket.
    [[nodiscard]] const Descriptor &answer() const { return m_socket; }

private:
    Descriptor m_socket;
    bool m_isCrowded = false;
};

}
