// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "config/ImageFile.h"

#include <QFile>
#include <QImageReader>

#include <algorithm>

namespace Tessel {

namespace {

/// Larger files are not read: a PNG of this size takes half a second.
constexpr qint64 maxPixels = qint64 { 4096 } * 4096;

/// Empty for any other format.
QByteArray commonFormat(QFile &file)
{
    const QByteArray start = file.peek(8);
    if (start == "\x89PNG\r\n\x1a\n")
        return "png";
    return start.startsWith("\xff\xd8\xff") ? "jpeg" : "";
}

}

QImage readImageFile(const QString &path, int maxSide, ImageFormats formats)
{
    QFile file(path);
    const QByteArray format = file.open(QIODevice::ReadOnly) ? commonFormat(file) : QByteArray();
    if (format.isEmpty() && formats == ImageFormats::common)
        return {};
    QImageReader reader(&file, format);
    reader.setAutoDetectImageFormat(format.isEmpty()); // which loads all of Qt's plugins
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (size.isEmpty() || qint64 { size.width() } * size.height() > maxPixels)
        return {};
    if (std::max(size.width(), size.height()) > maxSide) {
        const QSize scaled = size.scaled(maxSide, maxSide, Qt::KeepAspectRatio);
        reader.setScaledSize(scaled.expandedTo({ 1, 1 }));
    }
    return reader.read();
}

}
