// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/QtPlugins.h"

#include <QDir>
#include <QLibraryInfo>

using namespace Qt::StringLiterals;

namespace Tessel {

bool hasQtWaylandPlugin()
{
    const QDir plugins(QLibraryInfo::path(QLibraryInfo::PluginsPath) + u"/platforms"_s);
    return !plugins.entryList({ u"libqwayland*"_s }).isEmpty();
}

}
