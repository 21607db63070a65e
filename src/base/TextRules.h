// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QString>

namespace Tessel {

/// The text that the bytes are. QString::fromUtf8() takes U+FEFF at the start for a byte order
/// mark, which a text that somebody selected does not have: there it is a part of the text.
[[nodiscard]] QString exactText(QByteArrayView utf8);

/// CR LF becomes LF, then each CR that is left does.
[[nodiscard]] QString withNormalizedLineEnds(const QString &text);

/// Control characters but for line feed and tab become visible (the block Control Pictures), so
/// that they neither move a text about nor command a terminal.
[[nodiscard]] QString withControlPictures(const QString &text);

/// What a window shows of a text: control characters visible, and lines of more than 1000
/// characters broken up, since Qt takes a minute to lay out one of a megabyte.
[[nodiscard]] QString displayable(const QString &text);

/// A stretch of a text, in UTF-16 code units.
struct TextRange
{
    qsizetype start = 0;
    qsizetype length = 0;
};

/// How many characters CR LF is: UAX #29 has it as one, AppleScript as two.
enum class CrLf { one, two };

/// The user-perceived characters: extended grapheme clusters (UAX #29).
[[nodiscard]] QList<TextRange> characterRanges(const QString &text, CrLf crLf = CrLf::one);
/// How many there are.
[[nodiscard]] qsizetype characterCount(const QString &text, CrLf crLf = CrLf::one);
/// Whether all code units are of a kind that never makes one character of several, CR LF apart.
[[nodiscard]] bool standAlone(QStringView text);

}
