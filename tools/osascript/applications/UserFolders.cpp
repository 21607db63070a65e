// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/applications/UserFolders.h"

#include <QDir>
#include <QStandardPaths>

#include <pwd.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace Tessel::Osascript {

void ensureHome()
{
    if (qgetenv("HOME").startsWith('/'))
        return;
    if (const passwd *user = getpwuid(getuid()))
        qputenv("HOME", user->pw_dir);
}

QString userFolder(QStringView words)
{
    using enum QStandardPaths::StandardLocation;
    static constexpr std::pair<QStringView, QStandardPaths::StandardLocation> folders[] {
        { u"desktop", DesktopLocation },
        { u"documents", DocumentsLocation },
        { u"downloads", DownloadLocation },
        { u"music", MusicLocation },
        { u"pictures", PicturesLocation },
        { u"movies", MoviesLocation },
        { u"temporary items", TempLocation },
        { u"application support", GenericDataLocation },
        { u"home", HomeLocation },
    };
    for (const auto &[name, location] : folders) {
        if (words == name || words == name.toString() + u" folder"_s)
            return QStandardPaths::writableLocation(location);
    }
    return QStandardPaths::writableLocation(GenericDataLocation) + u"/Trash/files"_s; // "trash"
}

}
