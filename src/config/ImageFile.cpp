// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "config/ImageFile.h"

#include <QImageReader>

#include <algorithm>

namespace Tessel {

namespace {

/// Larger files are not read: a PNG of this size takes half a second.
constexpr qint64 mostPixels = qint64 { 4096 } * 4096;

}

QImage readImageFile(const QString &path, int longestSide)
{
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (size.isEmpty() || qint64 { size.width() } * size.height() > mostPixels)
        return {};
    if (std::max(size.width(), size.height()) > longestSide) {
        const QSize scaled = size.scaled(longestSide, longestSide, Qt::KeepAspectRatio);
        reader.setScaledSize(scaled.expandedTo({ 1, 1 }));
    }
    return reader.read();
}

}
