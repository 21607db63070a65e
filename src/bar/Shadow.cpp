// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "bar/Shadow.h"

#include <QColor>

#include <algorithm>
#include <cmath>

namespace Tessel {

namespace {

/// Signed distance from a point to the edge of a rounded rectangle, negative inside.
double distanceToEdge(QPointF point, const QRectF &rect, double radius)
{
    const QPointF center = rect.center();
    const double x = std::abs(point.x() - center.x()) - rect.width() / 2 + radius;
    const double y = std::abs(point.y() - center.y()) - rect.height() / 2 + radius;
    return std::hypot(std::max(x, 0.0), std::max(y, 0.0)) + std::min(std::max(x, y), 0.0) - radius;
}

}

/// Made pixel by pixel: paths of this kind would start Qt's painting threads.
QImage shadowAround(const QRectF &shape, double radius, double depth, const QColor &color,
                    QSize extent, double scale)
{
    QImage image(extent * scale, QImage::Format_ARGB32_Premultiplied);
    for (int row = 0; row < image.height(); ++row) {
        auto *pixels = reinterpret_cast<QRgb *>(image.scanLine(row));
        for (int column = 0; column < image.width(); ++column) {
            const QPointF point((column + 0.5) / scale, (row + 0.5) / scale);
            const double away = distanceToEdge(point - QPointF(0, shadowDrop), shape, radius);
            const double nearness = std::clamp(1 - away / depth, 0.0, 1.0);
            const double outside
                = std::clamp(distanceToEdge(point, shape, radius) * scale + 0.5, 0.0, 1.0);
            const int alpha = int(color.alpha() * nearness * nearness * outside);
            pixels[column] = qPremultiply(qRgba(color.red(), color.green(), color.blue(), alpha));
        }
    }
    image.setDevicePixelRatio(scale);
    return image;
}

}
