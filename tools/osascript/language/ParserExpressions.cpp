// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/language/Parser.h"

#include "osascript/values/NumberFormat.h"

#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

namespace Tessel::Osascript {

namespace {

/// Together with the nesting this bounds the height of the tree, which is walked recursively.
constexpr int maxOperators = 2000;

}

bool Parser::isAtOperator() const
{
    return m_vocabulary.matchOperator(m_tokens, m_at).length > 0;
}

void Parser::countOperator()
{
    if (++m_operators > maxOperators)
        failSyntax(u"The expression has too many operators."_s);
}

Parser::Precedence Parser::precedenceOf(Operation operation)
{
    using enum Operation;
    switch (operation) {
    case Operation::power:
        return Precedence::power;
    case multiply:
    case divide:
    case integerDivide:
    case modulo:
        return multiplication;
    case add:
    case subtract:
        return addition;
    case concatenate:
        return concatenation;
    case coerce:
        return coercion;
    case less:
    case lessOrEqual:
    case greater:
    case greaterOrEqual:
        return relation;
    case Operation::conjunction:
        return Precedence::conjunction;
    case Operation::disjunction:
        return Precedence::disjunction;
    default:
        return equality;
    }
}

/// Precedence climbing over binary operators.
ExpressionPointer Parser::readExpression(Precedence loosest)
{
    const QScopedValueRollback deeper(m_depth, m_depth + 1);
    if (m_depth > maxNesting)
        failSyntax(u"The expression is nested too deeply."_s);
    const qsizetype from = m_at;
    ExpressionPointer left = readPrefixed(loosest);
    while (true) {
        const auto [length, operation] = m_vocabulary.matchOperator(m_tokens, m_at);
        const Precedence precedence = precedenceOf(operation);
        if (length == 0 || precedence < loosest || (precedence == coercion && !m_allowed.as))
            return left;
        countOperator();
        m_at += length;
        ExpressionPointer right;
        if (precedence == coercion)
            right = readCoercionTarget();
        else if (operation != Operation::isRunning && operation != Operation::isNotRunning)
            right = readExpression(precedence == power ? power
                                                       : static_cast<Precedence>(precedence + 1));
        left = make(OperatorExpression { operation, std::move(left), std::move(right) }, from);
    }
}

ExpressionPointer Parser::readOperand()
{
    return readExpression(operand);
}

ExpressionPointer Parser::readPrefixed(Precedence loosest)
{
    const qsizetype from = m_at;
    if (accept(u"not")) {
        const Precedence inner = std::max(loosest, logicalNegation);
        ExpressionPointer negated = readExpression(inner);
        return make(Negation { Negation::Kind::logical, std::move(negated) }, from);
    }
    if (accept(u"-")) {
        ExpressionPointer negated = readOperand();
        return make(Negation { Negation::Kind::arithmetic, std::move(negated) }, from);
    }
    if (accept(u"+"))
        return readOperand();
    return readPostfixed();
}

/// A class, or a list of classes to be tried in turn.
ExpressionPointer Parser::readCoercionTarget()
{
    const qsizetype from = m_at;
    if (!accept(u"{"))
        return readClassName();
    ListExpression classes;
    do
        classes.items.push_back(readClassName());
    while (accept(u","));
    expect(u"}");
    return make(std::move(classes), from);
}

/// A primary, and all that is said to belong to it: `x's first word's length`.
ExpressionPointer Parser::readPostfixed()
{
    const qsizetype from = m_at;
    ExpressionPointer value = readPrimary();
    while (isAt(u"'s")) {
        countOperator();
        ++m_at;
        ExpressionPointer part = readPart();
        value = within(std::move(part), std::move(value), from);
        readFilter(*value);
    }
    return readExistence(std::move(value));
}

ExpressionPointer Parser::readExistence(ExpressionPointer subject)
{
    const qsizetype from = m_at;
    if (accept(u"exists"))
        return make(ExistsExpression { std::move(subject) }, from);
    if (!accept(u"does not exist") && !accept(u"doesn't exist"))
        return subject;
    ExpressionPointer exists = make(ExistsExpression { std::move(subject) }, from);
    return make(Negation { Negation::Kind::logical, std::move(exists) }, from);
}

ExpressionPointer Parser::readPrimary()
{
    const qsizetype from = m_at;
    skipArticle();
    if (isAt(u"("))
        return readParenthesized();
    if (isAt(u"{"))
        return distributed(readBraces(), from);
    if (accept(u"exists"))
        return make(ExistsExpression { readOperand() }, from);
    if (accept(u"a reference to") || accept(u"ref to") || accept(u"reference to"))
        return make(ReferenceExpression { readOperand() }, from);
    const bool isOrdinal = peek().kind == Token::Kind::integer && peek(1).text == u"th";
    using enum Token::Kind;
    if (!isOrdinal && (peek().kind == integer || peek().kind == real || peek().kind == text))
        return readLiteral();
    return readPlace();
}

ExpressionPointer Parser::readLiteral()
{
    const qsizetype from = m_at;
    const Token &token = m_tokens.at(m_at++);
    if (token.kind == Token::Kind::text)
        return make(Literal { Value(token.text) }, from);
    return make(Literal { *parseNumber(token.text) }, from);
}

ExpressionPointer Parser::readParenthesized()
{
    const QScopedValueRollback allowed(m_allowed, {});
    const QScopedValueRollback<const CommandTerm *> none(m_command, nullptr);
    expect(u"(");
    accept(u"get");
    m_statementStart = m_at; // a command in parentheses takes all that follows it
    ExpressionPointer value = readExpression();
    expect(u")");
    return value;
}

ExpressionPointer Parser::readBraces()
{
    const QScopedValueRollback allowed(m_allowed, {});
    const QScopedValueRollback<const CommandTerm *> none(m_command, nullptr);
    const qsizetype from = m_at;
    expect(u"{");
    if (labelLength() > 0)
        return readRecord(from);
    ListExpression list;
    if (!isAt(u"}")) {
        do
            list.items.push_back(readExpression());
        while (accept(u","));
    }
    expect(u"}");
    return make(std::move(list), from);
}

/// `{year, month} of x`: the list's items are said of x.
ExpressionPointer Parser::distributed(ExpressionPointer list, qsizetype from)
{
    auto *parts = std::get_if<ListExpression>(&list->form);
    if (!parts || !isBeforeContainer())
        return list;
    for (ExpressionPointer &part : parts->items) {
        // In front of a comma, "text" is the class.
        if (const auto *literal = std::get_if<Literal>(&part->form);
            literal && literal->value.is<ClassName>())
            part->form = PropertyExpression { literal->value.get<ClassName>().name };
        const auto *property = std::get_if<PropertyExpression>(&part->form);
        if (std::holds_alternative<ElementExpression>(part->form)
            || (property && property->container))
            continue;
        part = within(std::move(part), make(Pronoun { Pronoun::Kind::it }, from), from);
    }
    ++m_at;
    return make(DistributedExpression { std::move(list), readContainer() }, from);
}

/// How many tokens the label of a field takes here; 0 when there is none.
qsizetype Parser::labelLength() const
{
    const qsizetype length
        = std::max<qsizetype>(matchTerm().length, peek().kind <= Token::Kind::name ? 1 : 0);
    return length > 0 && peek(length).text == u":" && peek(length).kind == Token::Kind::symbol
        ? length
        : 0;
}

ExpressionPointer Parser::readRecord(qsizetype from)
{
    RecordExpression record;
    do {
        const qsizetype length = labelLength();
        if (length == 0)
            failExpecting(u"property name"_s);
        const auto property = matchTerm().name(NameTerm::Kind::property);
        record.names.append(property ? property->term->words.toString() : peek().text);
        m_at += length + 1;
        record.values.push_back(readExpression());
    } while (accept(u","));
    expect(u"}");
    return make(std::move(record), from);
}

/// Whether something that can be a value starts here.
bool Parser::startsOperand() const
{
    using enum Token::Kind;
    switch (peek().kind) {
    case lineEnd:
    case end:
        return false;
    case symbol:
        return isAt(u"(") || isAt(u"{") || isAt(u"-") || isAt(u"+");
    case word:
        break;
    default:
        return true;
    }
    if (matchParameter(0, false))
        return false;
    static constexpr QStringView starts[] { u"a",      u"beginning", u"end", u"every", u"exists",
                                            u"first",  u"it",        u"its", u"last",  u"me",
                                            u"middle", u"my",        u"not", u"some",  u"the" };
    const bool isStart = std::any_of(std::begin(starts), std::end(starts),
                                     [this](QStringView word) { return isAt(word); });
    return isStart || isIdentifier() || (matchTerm().length > 0 && !isAtOperator());
}

}
