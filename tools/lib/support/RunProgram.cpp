// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "lib/support/RunProgram.h"

#include "base/RunCommand.h"

using namespace Qt::StringLiterals;

namespace Tessel {

Result<QByteArray> runProgram(const QString &program, const QStringList &arguments,
                              const QByteArray &input)
{
    const auto result = runCommand(
        { .program = program, .arguments = arguments, .input = input, .endsWithParent = true });
    if (!result)
        return result.error();
    if (result->isEndedBySignal)
        return Failure { program + u" was ended by a signal."_s };
    if (result->exitStatus != 0)
        return Failure { QString::fromUtf8(result->errorOutput).trimmed() };
    return result->output;
}

}
