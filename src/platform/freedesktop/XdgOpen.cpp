// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/XdgOpen.h"

#include "platform/freedesktop/DetachedProgram.h"

using namespace Qt::StringLiterals;

namespace Tessel {

std::optional<QString> xdgOpen(const QString &target)
{
    return startDetached({ u"xdg-open"_s, target });
}

}
