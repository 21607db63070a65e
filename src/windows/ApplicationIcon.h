// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "config/AppConfig.h"

#include <QImage>

class QIcon;

namespace Tessel {

class ResourceBundle;

/// The image drawn over exactly the given size.
[[nodiscard]] QImage resized(const QImage &image, QSize size);

/// The artwork in the middle of a transparent image: `size` in logical pixels, of which it takes
/// the given share; null when the resource is missing.
[[nodiscard]] QImage applicationArtwork(AppIconType type, const ResourceBundle &bundle, QSize size,
                                        double share, double scale = 1);

/// The chosen artwork at 128 × 128, drawn at 80 % with a margin; null when the resource is missing.
[[nodiscard]] QImage applicationIconImage(AppIconType type, const ResourceBundle &bundle);

/// Gives the icon to all windows, present and future. Nothing happens without the resource.
void applyApplicationIcon(AppIconType type, const ResourceBundle &bundle);

}
