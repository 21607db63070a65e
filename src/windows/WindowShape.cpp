// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "windows/WindowShape.h"

#include <QWidget>

namespace Tessel {

QPainterPath roundedRectangle(const QRectF &rect, double radius)
{
    QPainterPath path;
    path.addRoundedRect(rect, radius, radius);
    return path;
}

void shapeWindow(QWidget &window, const QPainterPath &shape, bool isCompositing)
{
    if (!isCompositing)
        window.setMask(QRegion(shape.toFillPolygon().toPolygon()));
    else if (!window.mask().isEmpty())
        window.clearMask();
}

}
