// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QImage>

namespace Tessel {

/// Reads an image of any of the formats that icons come in: what Qt reads, TIFF, ICNS, WebP, and
/// SVG, which is drawn with a longest side of that many pixels; the others may be larger. Null when
/// the bytes are none of them, or damaged, or more than an icon could sensibly be. To be called
/// once.
[[nodiscard]] QImage readIconImage(const QByteArray &bytes, int side);

/// The largest PNG image in an icon file of macOS ("icns": big-endian chunks of type, length and
/// content); empty when there is none.
[[nodiscard]] QByteArray largestPngOfIcns(const QByteArray &bytes);

}
