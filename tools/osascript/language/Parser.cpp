// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/language/Parser.h"

#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

namespace Tessel::Osascript {

namespace {

QString described(const Token &token)
{
    using enum Token::Kind;
    switch (token.kind) {
    case lineEnd:
        return u"end of line"_s;
    case end:
        return u"end of script"_s;
    case integer:
    case real:
        return u"number"_s;
    case text:
        return u"“\"”"_s;
    case name:
        return u"identifier"_s;
    case word:
    case symbol:
        break;
    }
    return u'“' + token.text + u'”';
}

}

Parser::Parser(QStringView script, const Vocabulary &vocabulary)
    : m_vocabulary(vocabulary)
    , m_tokens(tokenize(script))
{
}

ParsedScript Parser::parse()
{
    findLabelledHandlers();
    ParsedScript parsed;
    parsed.script = readScriptItems();
    if (peek().kind != Token::Kind::end)
        failExpecting(u"end of script"_s);
    checkLoneWords();
    parsed.applications = m_applications;
    return parsed;
}

const Token &Parser::peek(qsizetype ahead) const
{
    return m_tokens.at(std::min(m_at + ahead, m_tokens.size() - 1));
}

bool Parser::isAt(QStringView words) const
{
    return matchWords(words, m_tokens, m_at) > 0;
}

bool Parser::isAtLineEnd() const
{
    return peek().kind == Token::Kind::lineEnd || peek().kind == Token::Kind::end;
}

bool Parser::accept(QStringView words)
{
    const qsizetype length = matchWords(words, m_tokens, m_at);
    m_at += length;
    return length > 0;
}

void Parser::expect(QStringView words)
{
    if (!accept(words))
        failExpecting(u'“' + words.toString() + u'”');
}

void Parser::expectLineEnd()
{
    if (!isAtLineEnd())
        failExpecting(u"end of line, etc."_s);
}

void Parser::failExpecting(const QString &what) const
{
    const bool isName = isIdentifier() && matchTerm().length == 0;
    const QString found = isName ? u"identifier"_s : described(peek());
    failSyntax(u"Expected "_s + what + u" but found "_s + found + u'.');
}

void Parser::failSyntax(const QString &message) const
{
    throw ScriptError { message, ScriptError::syntaxError, ScriptError::Phase::syntax,
                        peek().where };
}

SourceRange Parser::since(qsizetype token) const
{
    const qsizetype last = std::max(token, m_at - 1);
    return { m_tokens.at(token).where.start, m_tokens.at(last).where.end };
}

Vocabulary::Match Parser::matchTerm() const
{
    return peek().kind == Token::Kind::word ? m_vocabulary.match(m_tokens, m_at, m_suite)
                                            : Vocabulary::Match();
}

/// "the" says nothing, unless a term starts with it.
void Parser::skipArticle()
{
    if (matchTerm().length == 0)
        accept(u"the");
}

bool Parser::isIdentifier(qsizetype ahead) const
{
    const Token &token = peek(ahead);
    return token.kind == Token::Kind::name
        || (token.kind == Token::Kind::word && !m_vocabulary.isReserved(token.text));
}

QString Parser::readIdentifier()
{
    if (!isIdentifier())
        failExpecting(u"identifier"_s);
    return m_tokens.at(m_at++).text;
}

/// Calls with labels look like nothing else only when the handler is known, and it may be defined
/// after its use.
void Parser::findLabelledHandlers()
{
    for (qsizetype i = 1; i + 1 < m_tokens.size(); ++i) {
        const bool startsLine = i == 1 || m_tokens.at(i - 2).kind == Token::Kind::lineEnd;
        const bool defines
            = matchWords(u"on", m_tokens, i - 1) || matchWords(u"to", m_tokens, i - 1);
        const Token &next = m_tokens.at(i + 1);
        if (startsLine && defines && next.text != u"(" && next.kind != Token::Kind::lineEnd)
            m_labelledHandlers.insert(m_tokens.at(i).text.toLower());
    }
    m_labelledHandlers -= { u"run"_s, u"error"_s };
}

ScriptBlock Parser::readScriptItems()
{
    ScriptBlock script;
    HandlerDefinition run { .name = u"run"_s };
    run.takesOptionalArguments = true;
    while (true) {
        while (peek().kind == Token::Kind::lineEnd)
            ++m_at;
        if (peek().kind == Token::Kind::end || isAt(u"end"))
            break;
        if (!readScriptItem(script))
            run.body.push_back(readStatement());
        expectLineEnd();
    }
    const bool hasRun
        = std::any_of(script.handlers.cbegin(), script.handlers.cend(),
                      [](const HandlerDefinition &handler) { return handler.name == u"run"; });
    if (hasRun && !run.body.empty())
        throw ScriptError { u"The run handler is specified more than once."_s, -2752,
                            ScriptError::Phase::syntax, run.body.front().where };
    if (!hasRun)
        script.handlers.push_back(std::move(run));
    return script;
}

bool Parser::readScriptItem(ScriptBlock &script)
{
    const StatementTerm *term = matchStatement();
    if (!term)
        return false;
    switch (term->keyword) { // each starts with one word
    case Keyword::on:
    case Keyword::to:
        ++m_at;
        script.handlers.push_back(readHandler());
        return true;
    case Keyword::script: {
        ++m_at;
        std::unique_ptr<ScriptBlock> inner = readScript();
        const QString name = inner->name;
        script.properties.push_back({ name, nullptr, std::move(inner) });
        return true;
    }
    case Keyword::property: {
        ++m_at;
        const QString name = readIdentifier();
        if (name.compare(u"parent", Qt::CaseInsensitive) == 0)
            failSyntax(u"Script objects cannot have a parent here."_s);
        m_assigned.insert(name.toLower());
        expect(u":");
        script.properties.push_back({ name, readExpression(), nullptr });
        return true;
    }
    case Keyword::global: {
        ++m_at;
        script.globals += std::get<Declaration>(readDeclaration(Declaration::Scope::global)).names;
        return true;
    }
    case Keyword::use:
        ++m_at;
        readUse();
        return true;
    default:
        return false;
    }
}

void Parser::readUse()
{
    if (isAt(u"framework"))
        failSyntax(u"Frameworks are not available here."_s);
    if (!accept(u"scripting additions") && !accept(u"AppleScript")) {
        expect(u"application");
        readPrimary();
    }
    if (accept(u"version"))
        readPrimary();
}

HandlerDefinition Parser::readHandler()
{
    HandlerDefinition handler;
    handler.name = isAt(u"run") || isAt(u"open") || isAt(u"quit")
        ? m_tokens.at(m_at++).text.toLower()
        : readIdentifier();
    handler.takesOptionalArguments = handler.name == u"run";
    m_assigned.insert(handler.name.toLower());
    const QScopedValueRollback outside(m_suite, Suite::language);
    const QString firstName = handler.name;
    if (accept(u"("))
        readPositionalParameters(handler);
    else if (isAt(u":"))
        readInterleavedParameters(handler);
    else if (handler.takesOptionalArguments && !isAtLineEnd())
        addParameter(handler, readPrimary());
    else
        readLabelledParameters(handler);
    expectLineEnd();
    handler.body = readBody();
    readEnd(firstName);
    while (handler.name.contains(u':') && !isAtLineEnd())
        ++m_at; // the rest of the name
    return handler;
}

void Parser::addParameter(HandlerDefinition &handler, ExpressionPointer parameter)
{
    addAssigned(*parameter);
    handler.parameters.push_back(std::move(parameter));
}

void Parser::readPositionalParameters(HandlerDefinition &handler)
{
    if (accept(u")"))
        return;
    do
        addParameter(handler, readPrimary());
    while (accept(u","));
    expect(u")");
}

void Parser::readLabelledParameters(HandlerDefinition &handler)
{
    const QScopedValueRollback allowed(m_allowed, { .of = false, .in = false });
    const auto add = [&](const QString &label) {
        handler.labels.append(label);
        addParameter(handler, readPrimary());
    };
    if (accept(u"of") || accept(u"in"))
        add(u"of"_s);
    while (!isAtLineEnd() && !isAt(u"given")) {
        const auto known = handlerLabels();
        const auto label = std::find_if(known.begin(), known.end(),
                                        [this](QStringView words) { return accept(words); });
        if (label == known.end())
            failExpecting(u"“given”, “in”, “of”, other parameter name, “(”, “)” or end of line"_s);
        add(label->toString());
    }
    if (!accept(u"given"))
        return;
    do {
        const QString label = readIdentifier();
        expect(u":");
        add(label.toLower());
    } while (accept(u","));
}

void Parser::readInterleavedParameters(HandlerDefinition &handler)
{
    QString name = handler.name;
    for (bool isFirst = true; !isAtLineEnd(); isFirst = false) {
        if (!isFirst)
            name += m_tokens.at(m_at++).text;
        expect(u":");
        name += u':';
        addParameter(handler, readPrimary());
    }
    handler.name = name;
}

std::unique_ptr<ScriptBlock> Parser::readScript()
{
    const QString name = isAtLineEnd() ? QString() : readIdentifier();
    m_assigned.insert(name.toLower());
    expectLineEnd();
    const QScopedValueRollback outside(m_suite, Suite::language);
    auto script = std::make_unique<ScriptBlock>(readScriptItems());
    script->name = name;
    readEnd(isAt(u"end script") ? u"script" : QStringView(name));
    return script;
}

void Parser::addAssigned(const Expression &target)
{
    if (const auto *variable = std::get_if<Variable>(&target.form))
        m_assigned.insert(variable->name.toLower());
    else if (const auto *property = std::get_if<PropertyExpression>(&target.form))
        m_assigned.insert(property->name.toLower());
    else if (const auto *list = std::get_if<ListExpression>(&target.form))
        for (const ExpressionPointer &item : list->items)
            addAssigned(*item);
    else if (const auto *record = std::get_if<RecordExpression>(&target.form))
        for (const ExpressionPointer &value : record->values)
            addAssigned(*value);
}

/// Inside `tell application`, a statement that is one name which never gets a value is meant as a
/// command of that application. Telling so now is better than after half of the script has run.
void Parser::checkLoneWords() const
{
    for (const Token &word : m_loneWords) {
        if (!m_assigned.contains(word.text.toLower()))
            throw ScriptError { u"Expected command name but found identifier “"_s + word.text
                                    + u"”."_s,
                                ScriptError::syntaxError, ScriptError::Phase::syntax, word.where };
    }
}

}
