// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/applications/NoteText.h"

#include "base/TextRules.h"

#include <QHash>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace Tessel::Osascript {

namespace {

constexpr qsizetype maxNameSize = 120; // bytes; file systems take 255, and " 2.md" follows

constexpr auto caseless = QRegularExpression::CaseInsensitiveOption;

QString decoded(const QString &text)
{
    static const QRegularExpression entity(u"&(#[0-9]{1,7}|#x[0-9a-f]{1,6}|[a-z]{2,6});"_s,
                                           caseless);
    static const QHash<QString, QString> names {
        { u"amp"_s, u"&"_s },   { u"lt"_s, u"<"_s },   { u"gt"_s, u">"_s },
        { u"quot"_s, u"\""_s }, { u"apos"_s, u"'"_s }, { u"nbsp"_s, u"\u00A0"_s },
    };
    QString result;
    qsizetype from = 0;
    for (auto matches = entity.globalMatch(text); matches.hasNext();) {
        const auto match = matches.next();
        const QString name = match.captured(1).toLower();
        const bool isHex = name.startsWith(u"#x"_s);
        const char32_t point
            = name.startsWith(u'#') ? name.mid(isHex ? 2 : 1).toUInt(nullptr, isHex ? 16 : 10) : 0;
        const bool isCharacter
            = point > 0 && point <= QChar::LastValidCodePoint && !QChar::isSurrogate(point);
        const QString character = isCharacter ? QString::fromUcs4(&point, 1) : names.value(name);
        result += text.mid(from, match.capturedStart() - from);
        result += character.isEmpty() ? match.captured() : character;
        from = match.capturedEnd();
    }
    return result + text.mid(from);
}

/// Where blocks start and end, there is one line break, however many tags say so.
QString textOfHtml(QString html)
{
    static const QRegularExpression head(u"<(head|style|script|title)\\b.*?</\\1\\s*>"_s,
                                         caseless | QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression emptyBlock(u"<(div|p)\\b[^<>]*>\\s*<br\\s*/?>\\s*</\\1\\s*>"_s,
                                               caseless);
    static const QRegularExpression lineBreak(u"<br\\s*/?>"_s, caseless);
    static const QRegularExpression block(
        u"\\n?(</"
        u"?(address|article|blockquote|body|div|dl|dt|dd|h[1-6]|head|hr|html|li|ol|p|pre|section|"
        u"table|tr|ul)(\\s[^<>]*)?/?>\\s*)+"_s,
        caseless);
    static const QRegularExpression other(u"</"
                                          u"?(a|b|big|center|code|em|font|i|img|meta|object|s|"
                                          u"small|span|strike|strong|sub|sup|tbody|td|th|thead|"
                                          u"tt|u)(\\s[^<>]*)?/?>"_s,
                                          caseless);
    html.remove(head);
    html.replace(emptyBlock, u"<div>\u2028</div>"_s); // an empty line
    html.replace(block, u"\n"_s).replace(lineBreak, u"\n"_s).remove(other);
    html = decoded(html);
    while (html.startsWith(u'\n'))
        html.remove(0, 1);
    while (html.endsWith(u'\n'))
        html.chop(1);
    return html.remove(QChar(0x2028));
}

}

QString noteText(const QString &body)
{
    static const QRegularExpression wrapper(
        u"\\A\\s*<html>\\s*<body>(.*)</body>\\s*</html>\\s*\\z"_s,
        caseless | QRegularExpression::DotMatchesEverythingOption);
    const auto match = wrapper.match(body);
    return withNormalizedLineEnds(match.hasMatch() ? match.captured(1).replace(u"<br>"_s, u"\n"_s)
                                                   : textOfHtml(body));
}

QString noteFileName(const QString &title)
{
    static const QRegularExpression unsafe(
        u"[\\x00-\\x1f\\x7f/\\\\:*?\"<>|\\p{Cf}\\p{Zl}\\p{Zp}]+"_s,
        QRegularExpression::UseUnicodePropertiesOption);
    QString name = QString(title).replace(unsafe, u" "_s).simplified();
    while (name.startsWith(u'.') || name.startsWith(u'-') || name.startsWith(u' '))
        name.remove(0, 1);
    while (name.toUtf8().size() > maxNameSize)
        name.chop(name.back().isLowSurrogate() ? 2 : 1);
    name = name.trimmed();
    return name.isEmpty() ? u"Note"_s : name;
}

}
