// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/language/Lexer.h"

#include "osascript/values/ScriptError.h"
#include "osascript/values/TextElements.h"

using namespace Qt::StringLiterals;

namespace Tessel::Osascript {

namespace {

/// Guillemets belong to the words of raw codes, of which a few are terms.
bool startsWord(QChar c)
{
    return c.isLetter() || c == u'_' || c == u'«' || c.isSurrogate();
}

bool continuesWord(QChar c)
{
    return c.isLetterOrNumber() || c == u'_' || c == u'»' || c.isMark() || c.isSurrogate();
}

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

bool isApostrophe(QChar c)
{
    return c == u'\'' || c == u'’';
}

class Lexer final
{
public:
    explicit Lexer(QStringView script)
        : m_script(script)
    {
    }

    QList<Token> tokens()
    {
        while (m_at < m_script.size())
            readNext();
        m_start = m_at;
        add(Token::Kind::lineEnd, {});
        add(Token::Kind::end, {});
        return m_tokens;
    }

private:
    QChar peek(qsizetype ahead = 0) const
    {
        const qsizetype at = m_at + ahead;
        return at < m_script.size() ? m_script[at] : QChar();
    }
    bool startsWith(QStringView text) const { return m_script.sliced(m_at).startsWith(text); }

    void add(Token::Kind kind, const QString &text)
    {
        m_tokens.append({ kind, text, { m_start, m_at } });
    }

    [[noreturn]] void fail(ScriptError::Number number, const QString &message) const
    {
        throw ScriptError { message, number, ScriptError::Phase::syntax,
                            SourceRange { m_start, std::min(m_at + 1, m_script.size()) } };
    }

    void readNext();
    void readWord();
    void readNumber();
    void readText();
    void readName();
    void readSymbol();
    void skipLine();
    void skipBlockComment();
    void readContinuation();
    void readLineBreak();

    QStringView m_script;
    QList<Token> m_tokens;
    qsizetype m_at = 0;
    qsizetype m_start = 0; ///< of the token being read
};

void Lexer::readNext()
{
    m_start = m_at;
    const QChar c = peek();
    if (isLineBreak(c))
        readLineBreak();
    else if (c.isSpace() || c == QChar::ByteOrderMark)
        ++m_at;
    else if (startsWith(u"--") || c == u'#')
        skipLine();
    else if (startsWith(u"(*"))
        skipBlockComment();
    else if (c == u'¬')
        readContinuation();
    else if (startsWord(c))
        readWord();
    else if (isDigit(c) || (c == u'.' && isDigit(peek(1))))
        readNumber();
    else if (c == u'"')
        readText();
    else if (c == u'|')
        readName();
    else
        readSymbol();
}

void Lexer::readLineBreak()
{
    m_at += startsWith(u"\r\n") ? 2 : 1;
    add(Token::Kind::lineEnd, {});
}

void Lexer::skipLine()
{
    while (m_at < m_script.size() && !isLineBreak(peek()))
        ++m_at;
}

void Lexer::skipBlockComment()
{
    int depth = 0;
    do {
        if (m_at >= m_script.size())
            fail(ScriptError::syntaxError, u"Expected “*)” but found end of script."_s);
        const int change = startsWith(u"(*") ? 1 : startsWith(u"*)") ? -1 : 0;
        depth += change;
        m_at += change == 0 ? 1 : 2;
    } while (depth > 0);
}

void Lexer::readContinuation()
{
    ++m_at;
    while (m_at < m_script.size() && peek().isSpace() && !isLineBreak(peek()))
        ++m_at;
    if (startsWith(u"--"))
        skipLine();
    if (m_at < m_script.size() && !isLineBreak(peek()))
        fail(ScriptError::syntaxError, u"Expected end of line after “¬”."_s);
    m_at += startsWith(u"\r\n") ? 2 : 1;
    m_at = std::min(m_at, m_script.size());
}

void Lexer::readWord()
{
    ++m_at;
    while (m_at < m_script.size() && continuesWord(peek()))
        ++m_at;
    // "isn't" and "doesn't" are words; "x's" is a word and a possessive.
    if (isApostrophe(peek()) && peek(1) == u't' && !continuesWord(peek(2)))
        m_at += 2;
    QString text = m_script.sliced(m_start, m_at - m_start).toString();
    add(Token::Kind::word, text.replace(u'’', u'\''));
}

void Lexer::readNumber()
{
    const auto skipDigits = [this] {
        while (isDigit(peek()))
            ++m_at;
    };
    bool isReal = false;
    skipDigits();
    if (peek() == u'.' && isDigit(peek(1))) {
        isReal = true;
        ++m_at;
        skipDigits();
    }
    const bool isSigned = peek(1) == u'+' || peek(1) == u'-';
    if (peek().toLower() == u'e' && isDigit(peek(isSigned ? 2 : 1))) {
        isReal = true;
        m_at += isSigned ? 2 : 1;
        skipDigits();
    }
    static constexpr QStringView ordinals[] { u"st", u"nd", u"rd", u"th" };
    for (const QStringView ordinal : ordinals) {
        if (startsWith(ordinal) && !continuesWord(peek(2))) {
            add(Token::Kind::integer, m_script.sliced(m_start, m_at - m_start).toString());
            m_start = m_at;
            m_at += 2;
            add(Token::Kind::word, u"th"_s);
            return;
        }
    }
    if (startsWord(peek()))
        fail(ScriptError::badToken, u"An identifier can’t go after this number."_s);
    add(isReal ? Token::Kind::real : Token::Kind::integer,
        m_script.sliced(m_start, m_at - m_start).toString());
}

void Lexer::readText()
{
    QString text;
    for (++m_at; peek() != u'"' || m_at >= m_script.size(); ++m_at) {
        if (m_at >= m_script.size())
            fail(ScriptError::syntaxError, u"Expected “\"” but found end of script."_s);
        if (peek() != u'\\') {
            text += peek();
            continue;
        }
        ++m_at;
        switch (peek().unicode()) {
        case u'n':
            text += u'\n';
            break;
        case u'r':
            text += u'\r';
            break;
        case u't':
            text += u'\t';
            break;
        case u'"':
        case u'\\':
            text += peek();
            break;
        default:
            fail(ScriptError::syntaxError, u"Expected “\"” but found unknown token."_s);
        }
    }
    ++m_at;
    add(Token::Kind::text, text);
}

void Lexer::readName()
{
    const qsizetype close = m_script.indexOf(u'|', m_at + 1);
    const QString text
        = m_script.sliced(m_at + 1, std::max<qsizetype>(close - m_at - 1, 0)).toString();
    if (close < 0 || std::any_of(text.cbegin(), text.cend(), isLineBreak))
        fail(ScriptError::badToken, u"Expected “|” but found end of line."_s);
    m_at = close + 1;
    add(Token::Kind::name, text);
}

void Lexer::readSymbol()
{
    static constexpr std::pair<QStringView, QStringView> symbols[] {
        { u"<=", u"<=" }, { u">=", u">=" }, { u"/=", u"/=" }, { u"≤", u"<=" },  { u"≥", u">=" },
        { u"≠", u"/=" },  { u"÷", u"/" },   { u"<", u"<" },   { u">", u">" },   { u"=", u"=" },
        { u"+", u"+" },   { u"-", u"-" },   { u"*", u"*" },   { u"/", u"/" },   { u"^", u"^" },
        { u"&", u"&" },   { u"(", u"(" },   { u")", u")" },   { u"{", u"{" },   { u"}", u"}" },
        { u",", u"," },   { u":", u":" },   { u"'s", u"'s" }, { u"’s", u"'s" },
    };
    for (const auto &[written, symbol] : symbols) {
        if (startsWith(written)) {
            m_at += written.size();
            add(Token::Kind::symbol, symbol.toString());
            return;
        }
    }
    fail(ScriptError::badToken, u"Expected expression but found unknown token."_s);
}

}

QList<Token> tokenize(QStringView script)
{
    return Lexer(script).tokens();
}

}
