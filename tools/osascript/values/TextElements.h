// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/TextRules.h"

#include <optional>

namespace Tessel::Osascript {

/// The character (CR LF is two) at an index from 1, or from -1 backwards, without looking at all of
/// a long text; nothing when there is none.
[[nodiscard]] std::optional<TextRange> characterRangeAt(const QString &text, qint64 index);
/// Words by Annex 29, whatever the locale.
[[nodiscard]] QList<TextRange> wordRanges(const QString &text);
[[nodiscard]] bool isLineBreak(QChar character);
/// Divided at LF, CR, CR LF, U+2028 and U+2029. An empty text has none; what follows the last line
/// break is one, even when it is empty.
[[nodiscard]] QList<TextRange> paragraphRanges(const QString &text);

/// Carriage returns, with which scripts end lines, as the line feeds that end lines on this
/// desktop. CR LF stays.
[[nodiscard]] QString withLineFeeds(QString text);

}
