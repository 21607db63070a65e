// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "base/FileLogger.h"

#include "base/Log.h"

#include <QDateTime>
#include <QFile>

#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

/// Opens it anew each time, in the shared temporary folder: a link that somebody put there is not
/// followed.
void append(const QString &path, const QByteArray &line)
{
    const int file
        = ::open(QFile::encodeName(path).constData(),
                 O_WRONLY | O_APPEND | O_CREAT | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK, 0644);
    if (file < 0)
        return;
    if (::write(file, line.constData(), size_t(line.size())) < 0) {
        // Nothing to be done; the printed copy remains.
    }
    ::close(file);
}

}

void FileLogger::log(const QString &message)
{
    log(message, u"/tmp/tessel_debug.log"_s);
}

void FileLogger::log(const QString &message, const QString &path)
{
    const QString time = QDateTime::currentDateTimeUtc().toString(Qt::ISODate);
    append(path, u"%1: %2\n"_s.arg(time, message).toUtf8());
    Log::print(message);
}

}
