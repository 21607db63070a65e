// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "base/TextRules.h"

#include <QStringView>

#include <algorithm>
#include <memory>

#include <unicode/ubrk.h>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

struct Closer
{
    void operator()(UBreakIterator *iterator) const { ubrk_close(iterator); }
};
using BreakIterator = std::unique_ptr<UBreakIterator, Closer>; ///< opened when first needed

bool isLineBreak(QChar character)
{
    return character == u'\r' || character == u'\n';
}

/// Whether the character never joins with another one of which this holds, CR LF apart: Latin,
/// Greek, Cyrillic, common punctuation, ideographs and complete Hangul syllables.
bool standsAlone(QChar character)
{
    const char16_t c = character.unicode();
    return c < 0x0300 || (c >= 0x0370 && c < 0x0483) || (c >= 0x2010 && c < 0x2028)
        || (c >= 0x3400 && c < 0xA000) || (c >= 0xAC00 && c < 0xD7A4);
}

/// Where the stretch ends in which characters may join. Nothing joins with a line break.
qsizetype stretchEnd(QStringView text, qsizetype begin)
{
    const auto joins = [](QChar left, QChar right) {
        return !(standsAlone(left) && standsAlone(right)) && !isLineBreak(left)
            && !isLineBreak(right);
    };
    qsizetype end = begin + 1;
    while (end < text.size() && joins(text[end - 1], text[end]))
        ++end;
    return end;
}

/// Segments the stretch as UAX #29 says. Not by QTextBoundaryFinder: that of Qt 6.4 fails 39 of the
/// 602 cases of the Unicode Character Database's own test.
template <typename Visitor>
void visitClusters(BreakIterator &iterator, QStringView text, TextRange stretch, Visitor visit)
{
    UErrorCode error = U_ZERO_ERROR;
    if (!iterator)
        iterator.reset(ubrk_open(UBRK_CHARACTER, "", nullptr, 0, &error));
    ubrk_setText(iterator.get(), text.utf16() + stretch.start, static_cast<int32_t>(stretch.length),
                 &error);
    if (U_FAILURE(error))
        return;
    int32_t from = 0;
    for (int32_t to = ubrk_next(iterator.get()); to != UBRK_DONE; to = ubrk_next(iterator.get())) {
        if (to - from > 1)
            visit(TextRange { stretch.start + from, to - from });
        from = to;
    }
}

/// The characters of several code units; every other code unit is one.
template <typename Visitor> void visitLongCharacters(QStringView text, CrLf crLf, Visitor visit)
{
    const auto isPlain = [](QChar c) { return c != u'\r' && standsAlone(c); };
    BreakIterator iterator;
    for (qsizetype begin = 0; begin < text.size();) {
        const auto *odd = std::find_if_not(text.cbegin() + begin, text.cend(), isPlain);
        const qsizetype at = odd - text.cbegin();
        if (at == text.size())
            return;
        if (*odd == u'\r') {
            const bool isCrLf = crLf == CrLf::one && text.sliced(at).startsWith(u"\r\n");
            if (isCrLf)
                visit(TextRange { at, 2 });
            begin = at + (isCrLf ? 2 : 1);
            continue;
        }
        const bool joinsBefore = at > begin && !isLineBreak(text[at - 1]);
        const qsizetype start = joinsBefore ? at - 1 : at;
        begin = stretchEnd(text, start);
        visitClusters(iterator, text, { start, begin - start }, visit);
    }
}

}

QString exactText(QByteArrayView utf8)
{
    const QString text = QString::fromUtf8(utf8);
    return utf8.startsWith("\xEF\xBB\xBF") ? QChar(QChar::ByteOrderMark) + text : text;
}

QString withNormalizedLineEnds(const QString &text)
{
    if (!text.contains(u'\r'))
        return text;
    return QString(text).replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
}

QList<TextRange> characterRanges(const QString &text, CrLf crLf)
{
    QList<TextRange> ranges;
    ranges.reserve(text.size());
    qsizetype end = 0;
    const auto appendUnitsUntil = [&](qsizetype start) {
        for (; end < start; ++end)
            ranges.append(TextRange { end, 1 });
    };
    visitLongCharacters(text, crLf, [&](TextRange range) {
        appendUnitsUntil(range.start);
        ranges.append(range);
        end = range.start + range.length;
    });
    appendUnitsUntil(text.size());
    return ranges;
}

qsizetype characterCount(const QString &text, CrLf crLf)
{
    qsizetype count = text.size();
    visitLongCharacters(text, crLf, [&count](TextRange range) { count -= range.length - 1; });
    return count;
}

bool standAlone(QStringView text)
{
    return std::all_of(text.cbegin(), text.cend(), [](QChar c) { return standsAlone(c); });
}

QString withControlPictures(const QString &text)
{
    QString shown = text;
    for (QChar &c : shown) {
        const char16_t unit = c.unicode();
        if (unit < 0x20 && unit != u'\n' && unit != u'\t')
            c = QChar(0x2400 + unit);
        else if (unit == 0x7f)
            c = QChar(0x2421);
        else if (unit >= 0x80 && unit < 0xa0)
            c = QChar(0xfffd);
    }
    return shown;
}

QString displayable(const QString &text)
{
    constexpr int maxLineLength = 1000;
    QString shown;
    shown.reserve(text.size() + text.size() / maxLineLength);
    int column = 0;
    for (const QChar c : withControlPictures(text)) {
        column = c == u'\n' ? 0 : column + 1;
        if (column > maxLineLength && !c.isLowSurrogate()) {
            shown += u'\n';
            column = 1;
        }
        shown += c;
    }
    return shown;
}

}
