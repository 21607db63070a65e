// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Command.h"

namespace Tessel {

/// Has the shell that the request names run a command, as "-c" does, with the request's arguments
/// for "$0" and those that follow it. One that is too long for an argument is read from descriptor
/// 3, which it finds closed; what the shell says about it then names "eval", too.
[[nodiscard]] CommandRequest shellRequest(CommandRequest shell, const QString &command);

}
