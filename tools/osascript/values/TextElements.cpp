// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/values/TextElements.h"

#include <unicode/brkiter.h>
#include <unicode/uloc.h>

#include <memory>

namespace Tessel::Osascript {

namespace {

using Iterator = std::unique_ptr<icu::BreakIterator>;

icu::UnicodeString view(const QString &text)
{
    return { false, reinterpret_cast<const char16_t *>(text.utf16()),
             static_cast<int32_t>(text.size()) }; // no copy
}

}

bool isLineBreak(QChar character)
{
    return character == u'\n' || character == u'\r' || character == QChar::LineSeparator
        || character == QChar::ParagraphSeparator;
}

std::optional<TextRange> characterRangeAt(const QString &text, qint64 index)
{
    const qsizetype size = text.size();
    if (index == 0 || index > size || index < -size)
        return std::nullopt;
    // Whether a character ends shows in the one after it.
    const QStringView looked
        = index > 0 ? QStringView(text).left(index + 1) : QStringView(text).right(1 - index);
    if (standAlone(looked))
        return TextRange { index > 0 ? index - 1 : size + index, 1 };
    const QList<TextRange> all = characterRanges(text, CrLf::two);
    const qsizetype position = index > 0 ? index - 1 : all.size() + index;
    return position >= 0 && position < all.size() ? std::optional(all.at(position)) : std::nullopt;
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
        if (!isLineBreak(text.at(i)))
            continue;
        ranges.append({ start, i - start });
        if (text.at(i) == u'\r' && text.mid(i + 1, 1) == u'\n')
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
