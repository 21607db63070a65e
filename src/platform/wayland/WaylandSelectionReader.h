// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/SelectionReads.h"
#include "platform/wayland/WaylandSelections.h"

#include <chrono>

namespace Tessel {

/// Fetches the text of a selection without ever waiting for its owner. Any number of reads may be
/// under way.
class WaylandSelectionReader final
{
public:
    explicit WaylandSelectionReader(const WaylandSelections &selections)
        : m_selections(selections)
    {
    }

    /// Nothing when the selection has no text, or is copied files, or when its owner does nothing
    /// for `patience`.
    [[nodiscard]] QFuture<std::optional<QString>> read(WaylandSelections::Selection selection,
                                                       std::chrono::milliseconds patience);

private:
    const WaylandSelections &m_selections;
    SelectionReads m_reads;
};

}
