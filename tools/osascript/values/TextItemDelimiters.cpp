// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/values/TextItemDelimiters.h"

#include "osascript/values/Value.h"

using namespace Qt::StringLiterals;

namespace Tessel::Osascript {

namespace {

Qt::CaseSensitivity caseOf(const TextContext &context)
{
    return context.rules.ignoresCase ? Qt::CaseInsensitive : Qt::CaseSensitive;
}

/// How many code units are delimiter there; 0 when none is.
qsizetype delimiterLength(QStringView rest, const QStringList &delimiters, Qt::CaseSensitivity cs)
{
    qsizetype longest = 0;
    for (const QString &delimiter : delimiters) {
        if (delimiter.size() > longest && rest.startsWith(delimiter, cs))
            longest = delimiter.size();
    }
    return longest;
}

}

QList<TextRange> textItemRanges(const QString &text, const TextContext &context)
{
    QStringList delimiters = context.delimiters;
    if (delimiters.isEmpty() || delimiters.constFirst().isEmpty())
        return characterRanges(text, CrLf::two);
    if (text.isEmpty())
        return {};
    if (delimiters.contains(u"\r"_s) && delimiters.contains(u"\n"_s))
        delimiters.append(u"\r\n"_s);
    QList<TextRange> ranges;
    qsizetype start = 0;
    for (qsizetype i = 0; i < text.size();) {
        const qsizetype length
            = delimiterLength(QStringView(text).sliced(i), delimiters, caseOf(context));
        if (length > 0) {
            ranges.append({ start, i - start });
            start = i + length;
        }
        i += std::max<qsizetype>(length, 1);
    }
    ranges.append({ start, text.size() - start });
    return ranges;
}

QString joined(const QStringList &texts, const TextContext &context)
{
    const QString delimiter = context.delimiters.value(0);
    qsizetype size = delimiter.size() * texts.size();
    for (const QString &text : texts)
        size += text.size();
    checkTextSize(size);
    return texts.join(delimiter);
}

}
