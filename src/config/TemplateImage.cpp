// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "config/TemplateImage.h"

#include <QPainter>

namespace Tessel {

QImage TemplateImage::tinted(const QImage &image, const QColor &color, int pixels)
{
    QImage fitted = image.convertToFormat(QImage::Format_ARGB32_Premultiplied)
                        .scaled(pixels, pixels, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    QPainter painter(&fitted);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(fitted.rect(), color);
    painter.end();
    return fitted;
}

QPixmap TemplateImage::tintedPixmap(const QImage &image, const QColor &color, int extent,
                                    double scale)
{
    QPixmap pixmap = QPixmap::fromImage(tinted(image, color, qRound(extent * scale)));
    pixmap.setDevicePixelRatio(scale);
    return pixmap;
}

void TemplateImage::drawCentred(QPainter &painter, const QPixmap &pixmap, const QRectF &place)
{
    QRectF target(QPointF(), pixmap.deviceIndependentSize());
    target.moveCenter(place.center());
    painter.drawPixmap(target.topLeft(), pixmap);
}

}
