// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

#include <optional>

namespace Tessel {

struct ProgramResult
{
    std::optional<QString> failure; ///< it could not be started or was ended by a signal
    int exitStatus = 0;
    QByteArray output;
    QByteArray errorOutput;
};

/// Runs a program and waits for its end, however long that takes. It ends when this process does.
[[nodiscard]] ProgramResult runProgram(const QString &program, const QStringList &arguments,
                                       const QByteArray &input = {});

}
