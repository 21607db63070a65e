// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPainterPath>

class QWidget;

namespace Tessel {

[[nodiscard]] QPainterPath roundedRectangle(const QRectF &rect, double radius);

/// Where nothing is blended the window itself gets the shape, in its logical pixels; where the
/// desktop blends it has none.
void shapeWindow(QWidget &window, const QPainterPath &shape, bool isCompositing);

}
