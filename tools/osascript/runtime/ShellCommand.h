// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace Tessel::Osascript {

enum class LineEndings {
    kept,
    altered, ///< line feeds become carriage returns, and the last one is left out
};

/// What the command prints when /bin/sh runs it in a process group of its own, which is ended when
/// this program is told to end. Raises the exit status with what the command wrote to standard
/// error.
[[nodiscard]] QString shellOutput(const QString &command, LineEndings lineEndings);

}
