// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Command.h"
#include "base/Descriptor.h"

#include <array>

namespace Tessel {

/// What a child gets as its first descriptors, and our ends of those that are captured. Descriptors
/// are not valid where the child has the process's own stream.
struct ChildStreams
{
    /// Nothing, with errno set, on failure.
    [[nodiscard]] static std::optional<ChildStreams> open(const CommandRequest &request);

    /// As a SpawnPlan has them.
    [[nodiscard]] std::array<int, 4> numbers() const;

    Descriptor childInput = {};
    Descriptor childOutput = {};
    Descriptor childErrorOutput = {};
    Descriptor childFurtherInput = {};
    bool isMerged = false; ///< standard error is standard output
    Descriptor output = {};
    Descriptor errorOutput = {};
};

}
