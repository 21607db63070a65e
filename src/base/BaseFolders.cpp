// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "base/BaseFolders.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace Tessel {

void BaseFolders::dropRelative()
{
    for (const char *variable :
         { "XDG_CACHE_HOME", "XDG_CONFIG_DIRS", "XDG_CONFIG_HOME", "XDG_DATA_DIRS", "XDG_DATA_HOME",
           "XDG_RUNTIME_DIR", "XDG_STATE_HOME" }) {
        const QByteArray given = qgetenv(variable);
        QByteArrayList paths
            = QByteArray(variable).endsWith("_DIRS") ? given.split(':') : QByteArrayList { given };
        if (paths.removeIf([](const QByteArray &path) { return !path.startsWith('/'); }) == 0)
            continue;
        if (paths.isEmpty())
            qunsetenv(variable);
        else
            qputenv(variable, paths.join(':'));
    }
}

QString BaseFolders::state()
{
    const QString home = qEnvironmentVariable("XDG_STATE_HOME");
    return (home.isEmpty() ? QDir::homePath() + u"/.local/state"_s : home) + u"/tessel"_s;
}

}
