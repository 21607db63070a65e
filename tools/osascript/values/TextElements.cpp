// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/values/TextElements.h"

#include <unicode/brkiter.h>
#include <unicode/uloc.h>

#include <memory>

namespace Tessel::Osascript {

namespace {

using Iterator = std::unique_ptr<icu::BreakIterator>;

/// Below it, and among ideographs and whole Hangul syllables, no two code units but CR LF make one
/// cluster.
constexpr char16_t firstCombining = 0x0300;

bool isSimple(QStringView text)
{
    return std::all_of(text.cbegin(), text.cend(), [](QChar c) {
        const char16_t unit = c.unicode();
        return (unit < firstCombining && unit != u'\u00AD') || (unit >= 0x4E00 && unit <= 0x9FFF)
            || (unit >= 0xAC00 && unit <= 0xD7A3);
    });
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

std::optional<TextRange> characterRangeAt(const QString &text, qint64 index)
{
    const qsizetype size = text.size();
    if (index == 0 || index > size || index < -size)
        return std::nullopt;
    // Whether a character ends shows in the one after it.
    const QStringView looked
        = index > 0 ? QStringView(text).left(index + 1) : QStringView(text).right(1 - index);
    if (isSimple(looked))
        return TextRange { index > 0 ? index - 1 : size + index, 1 };
    const QList<TextRange> all = characterRanges(text);
    const qsizetype position = index > 0 ? index - 1 : all.size() + index;
    return position >= 0 && position < all.size() ? std::optional(all.at(position)) : std::nullopt;
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
