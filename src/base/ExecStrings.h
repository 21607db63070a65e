// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Command.h"
#include "base/Result.h"

#include <QList>

#include <vector>

namespace Tessel {

/// What a program is started with: its arguments, of which the first is its path, and the
/// variables, each as "NAME=value".
struct ExecStrings
{
    ExecStrings(const QString &path, const CommandRequest &request);

    /// Fails when a program cannot get them as they are: a NUL would end a string, one with its
    /// ending zero may have 32 pages, and all of them a quarter of the stack (execve(2)).
    [[nodiscard]] Result<void> check() const;

    QList<QByteArray> arguments;
    QList<QByteArray> environment;
};

/// As execve(2) wants them: ending with null. They point into the list.
[[nodiscard]] std::vector<char *> nullTerminated(QList<QByteArray> &strings);

}
