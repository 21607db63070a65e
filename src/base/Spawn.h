// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Command.h"

#include <array>

#include <sys/types.h>

namespace Tessel {

/// A program as the kernel takes it.
struct SpawnPlan
{
    char **arguments = nullptr; ///< ends with null; the first is the path
    char **environment = nullptr; ///< ends with null
    const char *workingFolder = nullptr; ///< null: the process's own
    /// What becomes standard input, output and error and descriptor 3, in this order; above 3, or
    /// one that became another before, or -1: the process's own, and none for the last.
    std::array<int, 4> streams { -1, -1, -1, -1 };
    CommandRequest::Group group = CommandRequest::Group::inherited;
    bool endsWithParent = false;
    bool isDetached = false; ///< becomes nobody's child
};

struct Spawned
{
    pid_t child = 0; ///< not of a detached program
    int error = 0; ///< as errno has it; 0: the program runs
};

/// Starts the program. Takes as long as the kernel needs to load it.
[[nodiscard]] Spawned spawn(const SpawnPlan &plan);

}
