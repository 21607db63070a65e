// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Result.h"

#include <QStringList>

namespace Tessel {

/// Runs a program, looked for on the PATH, waits for its end, however long that takes, and returns
/// its output. It ends when this process does. Any exit status but 0 is a failure, with what the
/// program wrote to standard error.
[[nodiscard]] Result<QByteArray> runProgram(const QString &program, const QStringList &arguments,
                                            const QByteArray &input = {});

}
