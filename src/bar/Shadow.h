// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>

class QColor;

namespace Tessel {

/// How far below its shape a shadow lies, in logical pixels.
inline constexpr int shadowDrop = 2;

/// A picture of the soft shadow around a rounded rectangle, which fades out after `depth`, with a
/// hole where the rectangle, which may be translucent, is. Logical pixels, but for the scale.
[[nodiscard]] QImage shadowAround(const QRectF &shape, double radius, double depth,
                                  const QColor &color, QSize extent, double scale);

}
