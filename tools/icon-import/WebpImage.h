// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QImage>

namespace Tessel {

/// Reads a WebP image, of an animation the first frame, with a longest side of at most that many
/// pixels; null when the bytes are none or damaged.
[[nodiscard]] QImage readWebp(const QByteArray &bytes, int maxSide);

}
