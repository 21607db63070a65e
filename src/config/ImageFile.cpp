// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "config/ImageFile.h"

#include <QImageReader>

#include <algorithm>

namespace Tessel {

namespace {

/// Larger files are not read: a PNG of this size takes half a second.
constexpr qint64 maxPixels = qint64 { 4096 } * 4096;

}

QImage readImageFile(const QString &path, int maxSide)
{
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
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
