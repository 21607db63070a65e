// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QString>

#include <optional>

namespace Tessel::Osascript {

/// A stretch of a text, in UTF-16 code units.
struct TextRange
{
    qsizetype start = 0;
    qsizetype length = 0;
};

/// Grapheme clusters (Unicode Standard Annex 29); a carriage return and a line feed are two.
[[nodiscard]] QList<TextRange> characterRanges(const QString &text);
/// The character at an index from 1, or from -1 backwards, without looking at all of a long text;
/// nothing when there is none.
[[nodiscard]] std::optional<TextRange> characterRangeAt(const QString &text, qint64 index);
/// How many there are.
[[nodiscard]] qsizetype characterCount(const QString &text);
/// Words by Annex 29, whatever the locale.
[[nodiscard]] QList<TextRange> wordRanges(const QString &text);
/// Divided at LF, CR, CR LF, U+2028 and U+2029. An empty text has none; what follows the last line
/// break is one, even when it is empty.
[[nodiscard]] QList<TextRange> paragraphRanges(const QString &text);

/// Carriage returns, with which scripts end lines, as the line feeds that end lines on this
/// desktop. CR LF stays.
[[nodiscard]] QString withLineFeeds(QString text);

}
