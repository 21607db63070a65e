// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QImage>
#include <QPixmap>

class QPainter;

namespace Tessel {

/// Template images: only their alpha counts, the colour is given where they are drawn.
namespace TemplateImage {

/// The image's alpha in one colour, fitted into a square of the given device pixels.
[[nodiscard]] QImage tinted(const QImage &image, const QColor &color, int pixels);

/// The same as a pixmap of the given logical pixels, sharp at the scale.
[[nodiscard]] QPixmap tintedPixmap(const QImage &image, const QColor &color, int extent,
                                   double scale);

void drawCentred(QPainter &painter, const QPixmap &pixmap, const QRectF &place);

}

}
