// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "base/HelperFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace Tessel {

QString helperFolder(const QString &programFolder)
{
    // The build folder counts only for the program in it: an installed one must not look for its
    // helpers where anybody might put some.
    const QString built = QStringLiteral(TESSEL_BUILD_HELPERS);
    const bool isBuilt = QFileInfo(built).path() == QDir::cleanPath(programFolder);
    return isBuilt ? built : QDir::cleanPath(programFolder + u"/../libexec/tessel"_s);
}

void prependHelperFolderToPath()
{
    QByteArray path = qgetenv("PATH");
    if (path.isEmpty())
        path = "/usr/local/bin:/usr/bin:/bin"; // an empty entry would be the current folder
    qputenv("PATH", QFile::encodeName(helperFolder()) + ':' + path);
}

}
