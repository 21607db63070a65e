// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "actions/ShellQuoting.h"

#include <QList>
#include <QString>

#include <utility>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

constexpr QStringView placeholder = u"{text}";

enum class Context {
    command, ///< also in parentheses
    braces, ///< of "${", outside double quotes
    singleQuotes,
    escapingQuotes, ///< $'...' of zsh, in which a backslash is special
    doubleQuotes,
    quotedBraces, ///< of "${", in double quotes, where single quotes mean nothing
    backquotes,
    arithmetic, ///< a parenthesis each
    comment,
};

struct HereDocument
{
    QString delimiter;
    bool stripsTabs = false;
};

/// Reads a command as far as is needed to know in which quotes a place is.
class QuoteReader
{
public:
    explicit QuoteReader(QStringView command)
        : m_rest(command)
    {
    }

    bool isEveryTextQuoted();

private:
    void step();
    void stepInCommand(QChar next);
    void stepInDoubleQuotes(QChar next);
    void stepInArithmetic(QChar next);
    void expansion();
    void comment();
    void hereDocument();
    bool skipHereDocuments();
    void skipEscaped();
    void skipUntil(QChar end, bool hasEscapes);

    void take(qsizetype count)
    {
        m_previous = m_rest[count - 1];
        m_rest = m_rest.sliced(count);
    }
    void enter(Context context, qsizetype opening)
    {
        m_contexts.append(context);
        take(opening);
    }
    void leave()
    {
        if (m_contexts.size() > 1)
            m_contexts.removeLast();
        take(1);
    }

    QStringView m_rest;
    QChar m_previous = u'\n';
    QList<Context> m_contexts { Context::command };
    QList<HereDocument> m_hereDocuments; ///< that begin with the next line
};

bool QuoteReader::isEveryTextQuoted()
{
    while (!m_rest.isEmpty()) {
        const Context context = m_contexts.constLast();
        if (m_rest.startsWith(placeholder)) {
            if (context != Context::singleQuotes)
                return false;
            take(placeholder.size());
        } else if (context == Context::command && m_rest.front() == u'\n') {
            take(1);
            if (!skipHereDocuments())
                return false;
        } else {
            step();
        }
    }
    return true;
}

void QuoteReader::step()
{
    const QChar next = m_rest.front();
    switch (m_contexts.constLast()) {
    case Context::command:
    case Context::braces:
        return stepInCommand(next);
    case Context::singleQuotes:
        return skipUntil(u'\'', false);
    case Context::escapingQuotes:
        return skipUntil(u'\'', true);
    case Context::doubleQuotes:
    case Context::quotedBraces:
        return stepInDoubleQuotes(next);
    case Context::backquotes:
        return skipUntil(u'`', true);
    case Context::arithmetic:
        return stepInArithmetic(next);
    case Context::comment:
        return comment();
    }
}

void QuoteReader::stepInCommand(QChar next)
{
    const bool isCommand = m_contexts.constLast() == Context::command;
    switch (next.unicode()) {
    case u'\\':
        return skipEscaped();
    case u'\'':
        return enter(Context::singleQuotes, 1);
    case u'"':
        return enter(Context::doubleQuotes, 1);
    case u'`':
        return enter(Context::backquotes, 1);
    case u'$':
        return expansion();
    case u'(':
        if (m_rest.startsWith(u"(("))
            return enter(Context::arithmetic, 1); // the second one is read there
        return enter(Context::command, 1);
    case u')':
        return isCommand ? leave() : take(1);
    case u'}':
        return isCommand ? take(1) : leave();
    case u'#':
        if (isCommand && u" \t\n;&|()<>"_s.contains(m_previous))
            return enter(Context::comment, 1);
        return take(1);
    case u'<':
        if (m_rest.startsWith(u"<<<"))
            return take(3);
        return isCommand && m_rest.startsWith(u"<<") ? hereDocument() : take(1);
    default:
        return take(1);
    }
}

void QuoteReader::stepInDoubleQuotes(QChar next)
{
    const bool isInBraces = m_contexts.constLast() == Context::quotedBraces;
    switch (next.unicode()) {
    case u'\\':
        return skipEscaped();
    case u'"':
        return isInBraces ? enter(Context::doubleQuotes, 1) : leave();
    case u'}':
        return isInBraces ? leave() : take(1);
    case u'`':
        return enter(Context::backquotes, 1);
    case u'$':
        return expansion();
    default:
        return take(1);
    }
}

void QuoteReader::stepInArithmetic(QChar next)
{
    if (next == u'(')
        enter(Context::arithmetic, 1);
    else if (next == u')')
        leave();
    else
        take(1);
}

/// What a "$" begins.
void QuoteReader::expansion()
{
    const Context context = m_contexts.constLast();
    const bool isQuoted = context == Context::doubleQuotes || context == Context::quotedBraces;
    if (m_rest.startsWith(u"$(("))
        enter(Context::arithmetic, 2);
    else if (m_rest.startsWith(u"$("))
        enter(Context::command, 2);
    else if (m_rest.startsWith(u"${") && !m_rest.sliced(1).startsWith(placeholder))
        enter(isQuoted ? Context::quotedBraces : Context::braces, 2);
    else if (m_rest.startsWith(u"$'") && !isQuoted)
        enter(Context::escapingQuotes, 2);
    else
        take(1);
}

/// The line's end belongs to the command.
void QuoteReader::comment()
{
    if (m_rest.front() == u'\n')
        m_contexts.removeLast();
    else
        take(1);
}

/// Notes the line that ends it; one that has the text in it cannot be known.
void QuoteReader::hereDocument()
{
    take(2);
    HereDocument document;
    document.stripsTabs = m_rest.startsWith(u'-');
    if (document.stripsTabs)
        take(1);
    while (m_rest.startsWith(u' ') || m_rest.startsWith(u'\t'))
        take(1);
    QChar quote;
    for (; !m_rest.isEmpty() && !m_rest.startsWith(placeholder); take(1)) {
        const QChar next = m_rest.front();
        const bool isQuote = next == u'\'' || next == u'"';
        if (quote.isNull() && u" \t\n;&|()<>"_s.contains(next))
            break;
        if (isQuote && (quote.isNull() || quote == next))
            quote = quote.isNull() ? next : QChar();
        else if (next != u'\\' || quote == u'\'')
            document.delimiter += next;
    }
    m_hereDocuments.append(document);
}

/// False when there is a text in one of them.
bool QuoteReader::skipHereDocuments()
{
    for (const HereDocument &document : std::exchange(m_hereDocuments, {})) {
        bool isEnd = false;
        while (!isEnd && !m_rest.isEmpty()) {
            const qsizetype length = m_rest.indexOf(u'\n');
            QStringView line = length < 0 ? m_rest : m_rest.first(length);
            if (line.contains(placeholder))
                return false;
            take(length < 0 ? m_rest.size() : length + 1);
            while (document.stripsTabs && line.startsWith(u'\t'))
                line = line.sliced(1);
            isEnd = line == document.delimiter;
        }
    }
    return true;
}

/// A backslash, and what it takes the meaning from.
void QuoteReader::skipEscaped()
{
    take(1);
    if (!m_rest.isEmpty() && !m_rest.startsWith(placeholder))
        take(1);
    m_previous = u'\\'; // no space or operator, whatever was escaped
}

void QuoteReader::skipUntil(QChar end, bool hasEscapes)
{
    const QChar next = m_rest.front();
    if (hasEscapes && next == u'\\')
        skipEscaped();
    else if (next == end)
        leave();
    else
        take(1);
}

}

bool isTextQuoted(QStringView commandTemplate)
{
    return !commandTemplate.contains(placeholder)
        || QuoteReader(commandTemplate).isEveryTextQuoted();
}

}
