// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "open/DefaultHandlers.h"

#include "base/RunCommand.h"
#include "platform/freedesktop/XdgOpen.h"

#include <QDeadlineTimer>

using namespace Qt::StringLiterals;

namespace Tessel {

void DefaultHandlers::open(const QString &target)
{
    m_starts.push_back({ target, ChildProcess::start(xdgOpenRequest(target)) });
}

QStringList DefaultHandlers::failures(std::chrono::milliseconds limit)
{
    const QDeadlineTimer deadline(limit);
    QStringList reasons;
    for (auto &[target, process] : m_starts) {
        if (!process) {
            reasons += u"xdg-open could not be started: "_s + process.error().reason;
        } else if (process->waitForExit(deadline)) {
            const int status = process->takeResult().exitStatus;
            if (status != 0)
                reasons += nothingOpens(target, status);
        }
    }
    return reasons;
}

std::optional<QString> DefaultHandlers::textApplication()
{
    const auto answer = runCommand({ .program = u"xdg-mime"_s,
                                     .arguments = { u"query"_s, u"default"_s, u"text/plain"_s },
                                     .input = QByteArray(),
                                     .endsWithParent = true });
    QString identifier = QString::fromUtf8(answer.valueOr({}).output).trimmed();
    if (identifier.isEmpty())
        return {};
    if (identifier.endsWith(u".desktop"))
        identifier.chop(8);
    return identifier;
}

}
