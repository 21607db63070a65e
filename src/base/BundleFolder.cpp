// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "base/BundleFolder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace Tessel {

QString bundleFolder()
{
    const QString programs = QCoreApplication::applicationDirPath();
    const QString data = u"/share/tessel/Tessel_Tessel.bundle"_s;
    const QString installed = QDir::cleanPath(programs + u"/.."_s + data);
    const QString ofHelpers = QDir::cleanPath(programs + u"/../.."_s + data);
    const QString built = u"" TESSEL_BUILD_BUNDLE ""_s;
    for (const QString &folder : { installed, ofHelpers, built }) {
        if (QFileInfo(folder).isDir())
            return folder;
    }
    std::fprintf(stderr, "could not load resource bundle: from %s or %s\n",
                 qUtf8Printable(installed), qUtf8Printable(built));
    std::exit(EXIT_FAILURE);
}

}
