// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/x11/X11SelectionReader.h"

#include "platform/x11/X11SelectionTransfer.h"

using namespace std::chrono_literals;

namespace Tessel {

QFuture<std::optional<QString>> X11SelectionReader::read(quint32 selection,
                                                         std::chrono::milliseconds patience)
{
    return m_reads.add(std::make_unique<X11SelectionTransfer>(
        m_connection, selection, patience, 3s, SelectionTransfer::Accept::selectedText));
}

}
