// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "TextElements.h"

#include <unicode/brkiter.h>
#include <unicode/uloc.h>

#include <memory>

namespace osascript {

namespace {

using Iterator = std::unique_ptr<icu::BreakIterator>;

/// Below it, no two code units but CR LF make one cluster.
constexpr char16_t firstCombining = 0x0300;

bool isSimple(const QString &text)
{
    return std::all_of(text.cbegin(), text.cend(),
                       [](QChar c) { return c.unicode() < firstCombining && c != u'\u00AD'; });
}

icu::UnicodeString view(const QString &text)
{
    return { false, reinterpret_cast<const char16_t *>(text.utf16()),
             static_cast<int32_t>(text.size()) }; // no copy
}

}

QList<TextRange> characterRanges(const QString &text)
{
    QList<TextRange> ranges;
    if (isSimple(text)) {
        ranges.reserve(text.size());
        for (qsizetype i = 0; i < text.size(); ++i)
            ranges.append({ i, 1 });
        return ranges;
    }
    UErrorCode status = U_ZERO_ERROR;
    const Iterator clusters(
        icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    const icu::UnicodeString source = view(text);
    clusters->setText(source);
    int32_t from = clusters->first();
    for (int32_t to = clusters->next(); to != icu::BreakIterator::DONE; to = clusters->next()) {
        const bool isLineBreak = text.at(from) == u'\r' && to - from == 2;
        if (isLineBreak)
            ranges.append({ from, 1 });
        ranges.append({ isLineBreak ? from + 1 : from, isLineBreak ? 1 : to - from });
        from = to;
    }
    return ranges;
}

qsizetype characterCount(const QString &text)
{
    return isSimple(text) ? text.size() : characterRanges(text).size();
}

QList<TextRange> wordRanges(const QString &text)
{
    QList<TextRange> ranges;
    UErrorCode status = U_ZERO_ERROR;
    const Iterator words(icu::BreakIterator::createWordInstance(icu::Locale::getRoot(), status));
    const icu::UnicodeString source = view(text);
    words->setText(source);
    int32_t from = words->first();
    for (int32_t to = words->next(); to != icu::BreakIterator::DONE; to = words->next()) {
        if (words->getRuleStatus() >= UBRK_WORD_NONE_LIMIT)
            ranges.append({ from, to - from });
        from = to;
    }
    return ranges;
}

QList<TextRange> paragraphRanges(const QString &text)
{
    QList<TextRange> ranges;
    qsizetype start = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (c != u'\n' && c != u'\r' && c != QChar::LineSeparator && c != QChar::ParagraphSeparator)
            continue;
        ranges.append({ start, i - start });
        if (c == u'\r' && text.mid(i + 1, 1) == u'\n')
            ++i;
        start = i + 1;
    }
    if (!text.isEmpty())
        ranges.append({ start, text.size() - start });
    return ranges;
}

QString withLineFeeds(QString text)
{
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text.at(i) == u'\r' && text.mid(i + 1, 1) != u"\n")
            text[i] = u'\n';
    }
    return text;
}

}
