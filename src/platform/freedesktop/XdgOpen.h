// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Command.h"
#include "base/Result.h"

namespace Tessel {

/// Hands a URL or an absolute path to the user's default handler (xdg-utils). Exits with another
/// status than 0 when there is none or it failed; may run as long as the handler does.
[[nodiscard]] CommandRequest xdgOpenRequest(const QString &target);

/// Runs it and waits until it has failed, but no longer than it takes to find that nothing opens
/// the target: it lives on then. Not for a thread with an event loop.
[[nodiscard]] Result<void> xdgOpen(const QString &target);

/// The reason when nothing opens the target.
[[nodiscard]] QString nothingOpens(const QString &target, int exitStatus);

}
