// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "osascript/values/TextContext.h"
#include "osascript/values/TextElements.h"

namespace Tessel::Osascript {

/// The stretches between delimiters, of which the longest that fits counts. Without delimiters, or
/// with an empty first one, the characters. CR LF divides once when both CR and LF are delimiters,
/// so that a text has the same lines whichever way its lines end.
[[nodiscard]] QList<TextRange> textItemRanges(const QString &text, const TextContext &context);

/// With the first delimiter between them.
[[nodiscard]] QString joined(const QStringList &texts, const TextContext &context);

}
