// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Command.h"
#include "base/Result.h"

namespace Tessel {

/// Hands a URL or an absolute path to the user's default handler (xdg-utils). Exits with another
/// status than 0 when there is none or it failed; may run as long as the handler does.
[[nodiscard]] CommandRequest xdgOpenRequest(const QString &target);

/// The same; returns at once and fails when xdg-open cannot be started. What comes of it is not
/// known.
[[nodiscard]] Result<void> xdgOpen(const QString &target);

}
