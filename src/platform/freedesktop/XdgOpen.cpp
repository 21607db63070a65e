// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/XdgOpen.h"

#include "base/ChildProcess.h"

using namespace Qt::StringLiterals;

namespace Tessel {

Result<void> xdgOpen(const QString &target)
{
    return startDetached({ .program = u"xdg-open"_s, .arguments = { target } });
}

}
