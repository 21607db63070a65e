// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "lib/Host.h"

namespace Tessel::Osascript {

/// Runs the script that the arguments name, as the manual page of osascript describes them, and
/// prints its result. `arguments` has no program name. Returns the exit status.
[[nodiscard]] int runCommandLine(const QStringList &arguments, Host &host);

}
