// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Result.h"

#include <QByteArray>

class QFile;

namespace Tessel {

/// All of an open file or stream. Fails when it cannot be read or has more than 64 MiB, as much as
/// is taken from a clipboard: a stream may have no end.
[[nodiscard]] Result<QByteArray> readInput(QFile &file);

/// Writes what waits for standard output. The exit status; after a failure the program has told of
/// it on standard error.
[[nodiscard]] int finishOutput(const char *program);

}
