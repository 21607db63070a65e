// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "lib/support/StandardStreams.h"

#include <QFile>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

using namespace Qt::StringLiterals;

namespace Tessel {

Result<QByteArray> readInput(QFile &file)
{
    constexpr qsizetype maxSize = 64 << 20;
    constexpr qint64 atOnce = 64 << 10;
    QByteArray bytes;
    for (QByteArray more = file.read(atOnce); !more.isEmpty(); more = file.read(atOnce)) {
        bytes += more;
        if (bytes.size() > maxSize)
            return Failure { u"more than 64 MiB are not taken"_s };
    }
    if (file.error() != QFile::NoError)
        return Failure { file.errorString() };
    return bytes;
}

int finishOutput(const char *program)
{
    if (std::fflush(stdout) == 0 && !std::ferror(stdout))
        return EXIT_SUCCESS;
    std::fprintf(stderr, "%s: standard output: %s\n", program, std::strerror(errno));
    return EXIT_FAILURE;
}

}
