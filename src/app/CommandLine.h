// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

namespace Tessel {

/// Answers a start that only asks something, or that passes something on to the program that runs:
/// the exit status, or nothing when this is to be the program. Waits for nobody and needs no
/// application object.
[[nodiscard]] std::optional<int> answerCommandLine(int argc, const char *const argv[]);

/// Whether the program, once it is up, is to show its preferences.
[[nodiscard]] bool asksForPreferences(int argc, const char *const argv[]);

}
