// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/ChildProcess.h"

namespace Tessel {

// For programs that have nothing to do meanwhile: none of this is for a thread with an event loop.

/// Runs a program and waits for its end, however long that takes. Programs that it leaves in the
/// background are not waited for.
[[nodiscard]] Result<CommandResult> runCommand(const CommandRequest &request);

/// Waits until nobody has the child's pipes open any more and it has ended. When one stream has
/// more bytes than that, kills the child and fails.
[[nodiscard]] Result<CommandResult> readToEnd(ChildProcess &child, qsizetype maxOutput);

}
