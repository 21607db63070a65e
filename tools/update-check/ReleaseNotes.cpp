// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "update-check/ReleaseNotes.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

constexpr qsizetype longestSource = 65536;
constexpr qsizetype longestResult = 20000;

QRegularExpression expression(const QString &pattern)
{
    return QRegularExpression(pattern,
                              QRegularExpression::CaseInsensitiveOption
                                  | QRegularExpression::DotMatchesEverythingOption);
}

QString withoutTags(QString html)
{
    html.remove(expression(u"<!--.*?-->|<(script|style|head)\\b.*?</\\1\\s*>"_s));
    html = html.simplified(); // line breaks mean nothing between tags
    html.replace(expression(u"\\s*<li\\b[^<>]*>\\s*"_s), u"\n• "_s);
    html.replace(expression(u"\\s*</?(br|p|div|h[1-6]|ul|ol)\\b[^<>]*>\\s*"_s), u"\n"_s);
    html.remove(expression(u"</?[a-z][^<>]*>"_s));
    const std::pair<QString, QString> references[] {
        { u"&lt;"_s, u"<"_s },    { u"&gt;"_s, u">"_s },   { u"&quot;"_s, u"\""_s },
        { u"&apos;"_s, u"'"_s },  { u"&#39;"_s, u"'"_s },  { u"&rsquo;"_s, u"’"_s },
        { u"&ndash;"_s, u"–"_s }, { u"&nbsp;"_s, u" "_s }, { u"&amp;"_s, u"&"_s },
    };
    for (const auto &[reference, character] : references)
        html.replace(reference, character);
    return html;
}

/// Also the embeddings, overrides and isolates of the Unicode Bidirectional Algorithm (UAX #9).
bool isUnwanted(QChar character)
{
    const char16_t code = character.unicode();
    return (character.category() == QChar::Other_Control && code != u'\n' && code != u'\t')
        || (code >= u'\u202a' && code <= u'\u202e') || (code >= u'\u2066' && code <= u'\u2069');
}

}

QString plainText(QString notes)
{
    notes.truncate(longestSource);
    notes.removeIf(isUnwanted); // the CR of CR LF, too
    if (notes.contains(expression(u"</?[a-z][^<>]*>"_s)))
        notes = withoutTags(notes);
    notes.replace(expression(u"[ \\t]+\\n"_s), u"\n"_s);
    notes.replace(expression(u"\\n{3,}"_s), u"\n\n"_s);
    notes = notes.trimmed();
    notes.truncate(longestResult);
    return notes;
}

}
