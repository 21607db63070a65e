// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "windows/ReleaseNotes.h"

#include <QRegularExpression>
#include <QTextDocumentFragment>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

constexpr qsizetype maxSource = 65536;
constexpr qsizetype maxResult = 20000;

QRegularExpression expression(const QString &pattern)
{
    return QRegularExpression(pattern,
                              QRegularExpression::CaseInsensitiveOption
                                  | QRegularExpression::DotMatchesEverythingOption);
}

/// Not by QTextDocumentFragment: nested tags cost it a quadratic time, up to 14 seconds (Qt 6.4),
/// and a table of forty bytes can have a billion cells.
QString withoutTags(QString html)
{
    html.remove(expression(u"<!--.*?-->|<(script|style|head)\\b.*?</\\1\\s*>"_s));
    html = html.simplified(); // line breaks mean nothing between tags
    html.replace(expression(u"\\s*<li\\b[^<>]*>\\s*"_s), u"\n• "_s);
    html.replace(expression(u"\\s*</?(br|p|div|h[1-6]|ul|ol)\\b[^<>]*>\\s*"_s), u"\n"_s);
    html.remove(expression(u"</?[a-z][^<>]*>"_s));
    return html;
}

/// Without any tag there is nothing to nest or to load. All white space stays.
QString withoutReferences(QString text)
{
    text.replace(u'<', u"&lt;"_s);
    return QTextDocumentFragment::fromHtml(u"<pre>"_s + text + u"</pre>"_s).toPlainText();
}

/// Also the embeddings, overrides and isolates of the Unicode Bidirectional Algorithm (UAX #9).
bool isUnwanted(QChar character)
{
    const char16_t code = character.unicode();
    return (character.category() == QChar::Other_Control && code != u'\n' && code != u'\t')
        || (code >= u'\u202a' && code <= u'\u202e') || (code >= u'\u2066' && code <= u'\u2069');
}

QString tidied(QString text)
{
    text.removeIf(isUnwanted); // the CR of CR LF, too
    text.replace(expression(u"[ \\t]+\\n"_s), u"\n"_s);
    text.replace(expression(u"\\n{3,}"_s), u"\n\n"_s);
    return text.trimmed();
}

}

QString plainText(QString text)
{
    text.truncate(maxSource);
    text.removeIf(isUnwanted);
    if (text.contains(expression(u"</?[a-z][^<>]*>"_s)))
        text = withoutTags(text);
    return tidied(withoutReferences(tidied(text))).left(maxResult);
}

}
