// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "open/DefaultHandlers.h"

#include "lib/support/RunProgram.h"

#include <QDeadlineTimer>
#include <QProcess>

#include <algorithm>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace Tessel {

void DefaultHandlers::open(const QString &target)
{
    auto *process = new QProcess;
    process->setStandardInputFile(QProcess::nullDevice());
    process->setStandardOutputFile(QProcess::nullDevice());
    process->setStandardErrorFile(QProcess::nullDevice());
    process->setChildProcessModifier([] { setsid(); });
    process->start(u"xdg-open"_s, { target });
    m_starts.append({ target, process });
}

QStringList DefaultHandlers::failures(std::chrono::milliseconds limit)
{
    const QDeadlineTimer deadline(limit);
    QStringList reasons;
    for (const auto &[target, process] : m_starts) {
        process->waitForFinished(static_cast<int>(std::max<qint64>(0, deadline.remainingTime())));
        if (process->error() == QProcess::FailedToStart)
            reasons += u"xdg-open could not be started: "_s + process->errorString();
        else if (process->state() == QProcess::NotRunning
                 && (process->exitStatus() != QProcess::NormalExit || process->exitCode() != 0))
            reasons += u"No application opens %1 (xdg-open: status %2)."_s.arg(target).arg(
                process->exitCode());
    }
    return reasons;
}

std::optional<QString> DefaultHandlers::textApplication()
{
    const auto answer = runProgram(u"xdg-mime"_s, { u"query"_s, u"default"_s, u"text/plain"_s });
    QString identifier = QString::fromUtf8(answer.output).trimmed();
    if (identifier.isEmpty())
        return {};
    if (identifier.endsWith(u".desktop"))
        identifier.chop(8);
    return identifier;
}

}
