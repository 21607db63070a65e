// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/XdgOpen.h"

#include "base/ChildProcess.h"

using namespace Qt::StringLiterals;

namespace Tessel {

CommandRequest xdgOpenRequest(const QString &target)
{
    return { .program = u"xdg-open"_s,
             .arguments = { target },
             .input = QByteArray(),
             .output = CommandRequest::Output::nothing,
             .errorOutput = CommandRequest::Output::nothing,
             .group = CommandRequest::Group::ownSession };
}

Result<void> xdgOpen(const QString &target)
{
    return startDetached(xdgOpenRequest(target));
}

}
