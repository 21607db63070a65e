// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QImage>

namespace Tessel {

/// Draws an SVG document with a longest side of that many pixels; null when it is none or nothing
/// of it can be seen. Nothing but the bytes is read, and the system's fonts. Makes the process's
/// QGuiApplication, so it is to be called once.
[[nodiscard]] QImage readSvg(const QByteArray &bytes, int side);

/// The document without what leads out of it: style sheets in files (processing instructions),
/// document types, references to anything but its own parts. Empty when it is not well formed.
[[nodiscard]] QByteArray selfContainedSvg(const QByteArray &bytes);

}
