// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "base/TextRules.h"

#include <QStringView>

#include <memory>

#include <unicode/ubrk.h>

namespace Tessel {

namespace {

/// Segments text as UAX #29 says.
class ClusterCounter
{
public:
    qsizetype count(QStringView text)
    {
        UErrorCode error = U_ZERO_ERROR;
        if (!m_iterator)
            m_iterator.reset(ubrk_open(UBRK_CHARACTER, "", nullptr, 0, &error));
        ubrk_setText(m_iterator.get(), text.utf16(), static_cast<int32_t>(text.size()), &error);
        if (U_FAILURE(error))
            return text.size();
        qsizetype clusters = 0;
        while (ubrk_next(m_iterator.get()) != UBRK_DONE)
            ++clusters;
        return clusters;
    }

private:
    struct Closer
    {
        void operator()(UBreakIterator *iterator) const { ubrk_close(iterator); }
    };
    std::unique_ptr<UBreakIterator, Closer> m_iterator; ///< opened when first needed
};

/// Whether the character never joins with another one of which this holds, CR LF apart: Latin,
/// Greek, Cyrillic, common punctuation, ideographs and complete Hangul syllables.
bool standsAlone(QChar character)
{
    const char16_t c = character.unicode();
    return c < 0x0300 || (c >= 0x0370 && c < 0x0483) || (c >= 0x2010 && c < 0x2028)
        || (c >= 0x3400 && c < 0xA000) || (c >= 0xAC00 && c < 0xD7A4);
}

}

QString withNormalizedLineEnds(const QString &text)
{
    if (!text.contains(u'\r'))
        return text;
    return QString(text)
        .replace(QStringLiteral("\r\n"), QStringLiteral("\n"))
        .replace(u'\r', u'\n');
}

qsizetype characterCount(const QString &text)
{
    ClusterCounter counter;
    qsizetype count = 0;
    for (qsizetype begin = 0, end = 0; begin < text.size(); begin = end) {
        const auto joins = [&text](qsizetype i) {
            return (text[i - 1] == u'\r' && text[i] == u'\n') || !standsAlone(text[i - 1])
                || !standsAlone(text[i]);
        };
        end = begin + 1;
        while (end < text.size() && joins(end))
            ++end;
        count += end - begin == 1 ? 1 : counter.count(QStringView(text).mid(begin, end - begin));
    }
    return count;
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
    constexpr int longestLine = 1000;
    QString shown;
    shown.reserve(text.size() + text.size() / longestLine);
    int column = 0;
    for (const QChar c : withControlPictures(text)) {
        column = c == u'\n' ? 0 : column + 1;
        if (column > longestLine && !c.isLowSurrogate()) {
            shown += u'\n';
            column = 1;
        }
        shown += c;
    }
    return shown;
}

}
