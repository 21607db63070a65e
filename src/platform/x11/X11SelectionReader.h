// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/SelectionReads.h"

#include <chrono>

namespace Tessel {

class X11Connection;

/// Fetches the text of a selection (ICCCM, section 2), large ones in pieces (INCR), without ever
/// waiting for the owner.
class X11SelectionReader final
{
public:
    explicit X11SelectionReader(X11Connection &connection)
        : m_connection(connection)
    {
    }

    /// Nothing when the selection has no text, or is copied files, or when its owner does nothing
    /// for `patience`.
    [[nodiscard]] QFuture<std::optional<QString>> read(quint32 selection,
                                                       std::chrono::milliseconds patience);

private:
    X11Connection &m_connection;
    SelectionReads m_reads;
};

}
