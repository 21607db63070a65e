// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "lib/support/RunProgram.h"

#include "lib/support/ChildLifetime.h"

#include <QProcess>

using namespace Qt::StringLiterals;

namespace Tessel {

ProgramResult runProgram(const QString &program, const QStringList &arguments,
                         const QByteArray &input)
{
    QProcess process;
    endWithParent(process);
    process.start(program, arguments);
    process.write(input);
    process.closeWriteChannel();
    process.waitForFinished(-1);
    ProgramResult result;
    if (process.error() == QProcess::FailedToStart)
        result.failure = program + u": "_s + process.errorString();
    else if (process.exitStatus() != QProcess::NormalExit)
        result.failure = program + u" was ended by a signal."_s;
    result.exitStatus = process.exitCode();
    result.output = process.readAllStandardOutput();
    result.errorOutput = process.readAllStandardError();
    return result;
}

}
