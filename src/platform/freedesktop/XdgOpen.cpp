// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/XdgOpen.h"

#include "base/ChildProcess.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace Tessel {

namespace {

constexpr auto untilFailure = 1s;

}

CommandRequest xdgOpenRequest(const QString &target)
{
    return { .program = u"xdg-open"_s,
             .arguments = { target },
             .input = QByteArray(),
             .output = CommandRequest::Output::nothing,
             .errorOutput = CommandRequest::Output::nothing,
             .group = CommandRequest::Group::ownSession };
}

QString nothingOpens(const QString &target, int exitStatus)
{
    return u"No application opens %1 (xdg-open: status %2)."_s.arg(target).arg(exitStatus);
}

Result<void> xdgOpen(const QString &target)
{
    auto opener = ChildProcess::start(xdgOpenRequest(target));
    if (!opener)
        return opener.error();
    if (!opener->waitForExit(QDeadlineTimer(untilFailure)))
        return {};
    const int status = opener->takeResult().exitStatus;
    return status == 0 ? Result<void>() : Failure { nothingOpens(target, status) };
}

}
