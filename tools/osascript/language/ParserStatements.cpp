// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/language/Parser.h"

#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

namespace Tessel::Osascript {

namespace {

/// The name that the script gives for the application around a place, or nothing.
std::optional<QString> applicationOf(const Expression &place)
{
    const Expression *innermost = &place;
    while (true) {
        const auto *element = std::get_if<ElementExpression>(&innermost->form);
        const auto *property = std::get_if<PropertyExpression>(&innermost->form);
        const Expression *container = element ? element->container.get()
            : property                        ? property->container.get()
                                              : nullptr;
        if (container) {
            innermost = container;
            continue;
        }
        if (!element || element->className != u"application" || !element->key)
            return std::nullopt;
        const auto *literal = std::get_if<Literal>(&element->key->form);
        return literal && literal->value.isText() ? std::optional(literal->value.get<QString>())
                                                  : std::nullopt;
    }
}

}

/// Statements up to what ends the block: `end`, `else`, or `on error`.
Statements Parser::readBody()
{
    Statements body;
    while (true) {
        while (peek().kind == Token::Kind::lineEnd)
            ++m_at;
        const bool isOver
            = peek().kind == Token::Kind::end || isAt(u"end") || isAt(u"else") || isAt(u"on error");
        if (isOver)
            return body;
        body.push_back(readStatement());
        expectLineEnd();
    }
}

void Parser::readEnd(QStringView name)
{
    expect(u"end");
    const QString found = peek().text;
    if (isAtLineEnd() || found.compare(name, Qt::CaseInsensitive) == 0) {
        m_at += isAtLineEnd() ? 0 : 1;
        return;
    }
    failSyntax(u"Expected “end "_s + name.toString() + u"” but found “end "_s + found + u"”."_s);
}

/// The statement that starts here, unless the words are a command such as `set the clipboard to`.
const StatementTerm *Parser::matchStatement() const
{
    const StatementTerm *best = nullptr;
    qsizetype length = 0;
    for (const StatementTerm &term : statementTerms()) {
        const qsizetype matched = matchWords(term.words, m_tokens, m_at);
        if (matched > length) {
            best = &term;
            length = matched;
        }
    }
    const Vocabulary::Match term = matchTerm();
    return term.command && term.length > length ? nullptr : best;
}

Statement Parser::readStatement()
{
    const QScopedValueRollback deeper(m_depth, m_depth + 1);
    if (m_depth > maxNesting)
        failSyntax(u"The script is nested too deeply."_s);
    m_operators = 0;
    m_statementStart = m_at;
    const qsizetype from = m_at;
    const StatementTerm *term = matchStatement();
    if (term)
        m_at += term->words.count(u' ') + 1;
    Statement::Form form = term ? readForm(term->keyword) : readExpressionStatement();
    return { std::move(form), since(from) };
}

Statement::Form Parser::readForm(Keyword keyword)
{
    switch (keyword) {
    case Keyword::considering:
        return readConsidering(true);
    case Keyword::ignoring:
        return readConsidering(false);
    case Keyword::copy:
        return readAssignment(true);
    case Keyword::set:
        return readAssignment(false);
    case Keyword::error:
        return readError();
    case Keyword::exit:
        accept(u"repeat");
        return ExitRepeat {};
    case Keyword::get:
        return ExpressionStatement { readExpression() };
    case Keyword::global:
        return readDeclaration(Declaration::Scope::global);
    case Keyword::local:
        return readDeclaration(Declaration::Scope::local);
    case Keyword::ifThen:
        return readIf();
    case Keyword::repeat:
        return readRepeat();
    case Keyword::returns:
        return ReturnStatement { isAtLineEnd() ? nullptr : readExpression() };
    case Keyword::script:
        return ScriptStatement { readScript() };
    case Keyword::tell:
        return readTell();
    case Keyword::tries:
        return readTry();
    case Keyword::usingTerms:
        return readUsingTerms();
    case Keyword::withTimeout:
        return readTimeout();
    case Keyword::end:
    case Keyword::on:
    case Keyword::property:
    case Keyword::to:
    case Keyword::use:
        break;
    }
    --m_at;
    failExpecting(u"expression"_s);
}

Statement::Form Parser::readExpressionStatement()
{
    const Token first = peek();
    ExpressionPointer value = readExpression();
    const bool isLoneWord = std::holds_alternative<Variable>(value->form);
    if (isLoneWord && m_suite >= Suite::application)
        m_loneWords.append(first);
    return ExpressionStatement { std::move(value) };
}

Statement::Form Parser::readAssignment(bool copies)
{
    Assignment assignment { .copies = copies };
    (copies ? assignment.value : assignment.target) = copies ? readExpression() : readPostfixed();
    expect(u"to");
    (copies ? assignment.target : assignment.value) = copies ? readPostfixed() : readExpression();
    addAssigned(*assignment.target);
    return assignment;
}

Statement::Form Parser::readIf()
{
    IfStatement statement;
    ExpressionPointer test = readExpression();
    accept(u"then");
    if (!isAtLineEnd()) {
        statement.branches.push_back({ std::move(test), {} });
        statement.branches.back().body.push_back(readStatement());
        return statement;
    }
    statement.branches.push_back({ std::move(test), readBody() });
    while (accept(u"else")) {
        test = accept(u"if") ? readExpression() : nullptr;
        if (test)
            accept(u"then");
        expectLineEnd();
        const bool isLast = !test;
        statement.branches.push_back({ std::move(test), readBody() });
        if (isLast)
            break;
    }
    readEnd(u"if");
    return statement;
}

Statement::Form Parser::readRepeat()
{
    RepeatStatement repeat;
    readRepeatHead(repeat);
    expectLineEnd();
    repeat.body = readBody();
    readEnd(u"repeat");
    return repeat;
}

void Parser::readRepeatHead(RepeatStatement &repeat)
{
    using enum RepeatStatement::Form;
    if (isAtLineEnd())
        return;
    if (accept(u"while") || accept(u"until")) {
        repeat.form = m_tokens.at(m_at - 1).text.startsWith(u'w', Qt::CaseInsensitive) ? whileTrue
                                                                                       : untilTrue;
        repeat.value = readExpression();
    } else if (accept(u"with")) {
        repeat.variable = readIdentifier();
        m_assigned.insert(repeat.variable.toLower());
        repeat.form = accept(u"in") ? iterating : counting;
        if (repeat.form == counting)
            expect(u"from");
        repeat.value = readExpression();
        if (repeat.form == counting) {
            expect(u"to");
            repeat.last = readExpression();
            repeat.step = accept(u"by") ? readExpression() : nullptr;
        }
    } else {
        repeat.form = times;
        repeat.value = readExpression();
        accept(u"times");
    }
}

Statement::Form Parser::readTry()
{
    TryStatement statement;
    expectLineEnd();
    statement.body = readBody();
    if (accept(u"on error")) {
        readErrorPattern(statement);
        expectLineEnd();
        statement.handler = readBody();
    }
    if (accept(u"end error"))
        return statement;
    readEnd(u"try");
    return statement;
}

bool Parser::isAtErrorPart() const
{
    return isAt(u"number") || isAt(u"from") || isAt(u"to")
        || matchWords(u"partial result", m_tokens, m_at) > 0;
}

void Parser::readErrorPattern(TryStatement &statement)
{
    const auto readNumber = [this] {
        const int sign = accept(u"-") ? -1 : 1;
        if (peek().kind != Token::Kind::integer)
            failExpecting(u"number"_s);
        return m_tokens.at(m_at++).text.toInt() * sign;
    };
    const auto readVariable = [this] {
        QString name = readIdentifier();
        m_assigned.insert(name.toLower());
        return name;
    };
    if (!isAtLineEnd() && !isAtErrorPart())
        statement.message = readVariable();
    while (isAtErrorPart()) {
        if (accept(u"from"))
            statement.source = readVariable();
        else if (accept(u"to"))
            statement.wanted = readVariable();
        else if (accept(u"partial result"))
            statement.partialResult = readVariable();
        else if (expect(u"number"); peek().kind == Token::Kind::integer || isAt(u"-"))
            statement.onlyNumber = readNumber();
        else
            statement.number = readVariable();
    }
}

Statement::Form Parser::readError()
{
    ErrorStatement error;
    if (!isAtLineEnd() && !isAtErrorPart())
        error.message = readExpression();
    while (isAtErrorPart()) {
        if (accept(u"from"))
            error.source = readExpression();
        else if (accept(u"to")) // the class, even if words follow that could be a key
            error.wanted = matchTerm().length > 0 ? readClassName() : readExpression();
        else if (accept(u"partial result"))
            error.partialResult = readExpression();
        else if (accept(u"number"))
            error.number = readExpression();
    }
    return error;
}

Statement::Form Parser::readTell()
{
    TellStatement tell;
    tell.target = readExpression();
    const bool inOneLine = accept(u"to");
    if (!inOneLine)
        expectLineEnd();
    tell.body = readBodyTold(*tell.target, u"tell", inOneLine);
    return tell;
}

Statements Parser::readBodyTold(const Expression &target, QStringView name, bool inOneLine)
{
    const std::optional<QString> application = applicationOf(target);
    if (application)
        m_applications.append({ *application, target.where });
    const QScopedValueRollback told(m_suite, application ? suiteOf(*application) : m_suite);
    Statements body;
    if (inOneLine) {
        body.push_back(readStatement());
        return body;
    }
    body = readBody();
    readEnd(name);
    return body;
}

Statement::Form Parser::readUsingTerms()
{
    const ExpressionPointer application = readExpression();
    expectLineEnd();
    Block block { readBodyTold(*application, u"using", false) };
    accept(u"terms from");
    return block;
}

Statement::Form Parser::readTimeout()
{
    accept(u"of");
    readExpression();
    if (!accept(u"seconds"))
        accept(u"second");
    expectLineEnd();
    Block block { readBody() };
    readEnd(u"timeout");
    return block;
}

Statement::Form Parser::readConsidering(bool considers)
{
    ConsideringStatement statement;
    (considers ? statement.considered : statement.ignored) = readAttributes();
    if (accept(u"but")) {
        expect(considers ? u"ignoring" : u"considering");
        (considers ? statement.ignored : statement.considered) = readAttributes();
    }
    expectLineEnd();
    statement.body = readBody();
    readEnd(considers ? u"considering" : u"ignoring");
    return statement;
}

QList<ConsideringStatement::Attribute> Parser::readAttributes()
{
    using enum ConsideringStatement::Attribute;
    static constexpr std::pair<QStringView, ConsideringStatement::Attribute> names[] {
        { u"case", letterCase },        { u"diacriticals", diacriticals },
        { u"white space", whiteSpace }, { u"punctuation", punctuation },
        { u"hyphens", hyphens },        { u"numeric strings", numericStrings },
    };
    QList<ConsideringStatement::Attribute> attributes;
    do {
        if (accept(u"application responses"))
            continue;
        const auto *name = std::find_if(std::begin(names), std::end(names),
                                        [this](const auto &known) { return accept(known.first); });
        if (name == std::end(names))
            failExpecting(u"considering or ignoring attribute"_s);
        attributes.append(name->second);
    } while (accept(u", and") || accept(u",") || accept(u"and"));
    return attributes;
}

Statement::Form Parser::readDeclaration(Declaration::Scope scope)
{
    Declaration declaration { scope, {} };
    do {
        declaration.names.append(readIdentifier());
        m_assigned.insert(declaration.names.last().toLower());
    } while (accept(u","));
    return declaration;
}

}
