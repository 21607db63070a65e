// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/DetachedProgram.h"

#include <QProcess>

using namespace Qt::StringLiterals;

namespace Tessel {

std::optional<QString> startDetached(const QStringList &command, const QString &workingFolder)
{
    QProcess process;
    process.setProgram(command.first());
    process.setArguments(command.mid(1));
    process.setWorkingDirectory(workingFolder);
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    if (process.startDetached())
        return {};
    return command.first() + u" could not be started: "_s + process.errorString();
}

}
