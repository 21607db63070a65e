// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>

namespace Tessel {

/// The common ones are PNG and JPEG. For another one Qt loads all of its plugins, and that for SVG
/// reads whatever the document refers to: only for files that were installed.
enum class ImageFormats { common, all };

/// Reads an image file in at most the given size (longest side, in pixels); null when the file is
/// damaged, no image of these formats, or larger than an icon could sensibly be.
[[nodiscard]] QImage readImageFile(const QString &path, int maxSide, ImageFormats formats);

}
