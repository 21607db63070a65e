// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Command.h"
#include "base/Result.h"

#include <QString>

namespace Tessel {

/// The program that runs AppleScript: the system's own where there is one, else ours.
[[nodiscard]] QString scriptRunner();

/// A script with the text built into it. "{text}" in the script is meant to stand between double
/// quotes; a script without it does not get the text.
[[nodiscard]] CommandRequest appleScriptRequest(const QString &script, const QString &text,
                                                const QString &runner);

/// A name as shortcuts are stored under (Unicode normalization form C).
[[nodiscard]] QString shortcutName(const QString &typed);

/// Runs the shortcut of that name, else the first whose name contains it, with the text as its
/// input. Any failure of the first, also one of the shortcut itself, leads to the second.
[[nodiscard]] CommandRequest shortcutRequest(const QString &name, const QString &text,
                                             const QString &runner);

/// What is logged of how a runner went; empty when there is nothing to log. `what` is the word for
/// it: "AppleScript" or "Shortcut".
[[nodiscard]] QString scriptLogLine(const QString &what, const Result<CommandResult> &result);

}
