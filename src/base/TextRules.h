// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace Tessel {

/// CR LF becomes LF, then each CR that is left does.
[[nodiscard]] QString withNormalizedLineEnds(const QString &text);

/// Control characters but for line feed and tab become visible (the block Control Pictures), so
/// that they neither move a text about nor command a terminal.
[[nodiscard]] QString withControlPictures(const QString &text);

/// What a window shows of a text: control characters visible, and lines of more than 1000
/// characters broken up, since Qt takes a minute to lay out one of a megabyte.
[[nodiscard]] QString displayable(const QString &text);

/// The number of user-perceived characters: extended grapheme clusters (UAX #29). CR LF is one.
[[nodiscard]] qsizetype characterCount(const QString &text);

}
