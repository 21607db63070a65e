// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/wayland/WaylandSelectionReader.h"

#include "platform/wayland/WaylandSelectionTransfer.h"

using namespace std::chrono_literals;

namespace Tessel {

QFuture<std::optional<QString>> WaylandSelectionReader::read(WaylandSelections::Selection selection,
                                                             std::chrono::milliseconds patience)
{
    return m_reads.add(std::make_unique<WaylandSelectionTransfer>(
        m_selections, selection, patience, 3s, SelectionTransfer::Accept::selectedText));
}

}
