// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>

namespace Tessel {

/// Reads an image of the user's in at most the given size (longest side, in pixels); null when the
/// file is damaged, no image, or larger than an icon could sensibly be.
[[nodiscard]] QImage readImageFile(const QString &path, int maxSide);

}
