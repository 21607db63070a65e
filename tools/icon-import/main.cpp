// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "icon-import/IconImage.h"

#include <QFile>
#include <QImageReader>
#include <QSaveFile>
#include <QTextStream>

#include <sys/resource.h>

using namespace Tessel;
using namespace Qt::StringLiterals;

namespace {

constexpr int maxSide = 128; // pixels of what is written
[[maybe_unused]] constexpr rlim_t maxMemory = rlim_t { 2 } << 30;
constexpr int maxDecoded = 1024; // MiB of an image that Qt reads
constexpr rlim_t maxTime = 10; // seconds of processor time

void limitResources()
{
    const rlimit time { maxTime, maxTime };
    ::setrlimit(RLIMIT_CPU, &time);
    const rlimit noDump { 0, 0 };
    ::setrlimit(RLIMIT_CORE, &noDump);
#ifndef __SANITIZE_ADDRESS__ // which reserves terabytes
    const rlimit memory { maxMemory, maxMemory };
    ::setrlimit(RLIMIT_AS, &memory);
#endif
}

int fail(const QString &reason)
{
    QTextStream(stderr) << "tessel-icon-import: " << reason << '\n';
    return 1;
}

}

/// Writes a small PNG of an image file. A program of its own, so that an image which is hostile or
/// merely huge costs the resident one nothing.
int main(int argc, char *argv[])
{
    if (argc != 3)
        return fail(u"usage: tessel-icon-import SOURCE TARGET.png"_s);
    limitResources();
    QImageReader::setAllocationLimit(maxDecoded);
    // Whoever waits for the end reads no more than a pipe holds.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});

    QFile source(QFile::decodeName(argv[1]));
    if (!source.open(QIODevice::ReadOnly))
        return fail(source.errorString());
    QImage image = readIconImage(source.readAll(), maxSide);
    if (image.isNull())
        return fail(u"not an image that can be read: "_s + source.fileName());
    if (std::max(image.width(), image.height()) > maxSide)
        image = image.scaled(maxSide, maxSide, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    QSaveFile target(QFile::decodeName(argv[2]));
    if (!target.open(QIODevice::WriteOnly) || !image.save(&target, "PNG") || !target.commit())
        return fail(target.errorString());
    return 0;
}
