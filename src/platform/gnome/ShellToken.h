// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace Tessel {

/// By which the shell's extension knows the program and its helpers.
namespace ShellToken {

[[nodiscard]] QString make(); ///< another one each time that cannot be guessed

/// For helpers, in a file of the runtime folder that this user alone can read. Nothing is written
/// without such a folder.
void publish(const QString &token);
void remove();
[[nodiscard]] QString published(); ///< empty: none

}

}
