// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/language/Parser.h"

#include <QScopedValueRollback>
#include <QStringTokenizer>

using namespace Qt::StringLiterals;

namespace Tessel::Osascript {

namespace {

constexpr int maxArguments = 100;

}

/// A command at the start of a statement takes whole expressions; inside an expression it leaves
/// comparisons to the expression: `if (offset of a in b) > 0` needs no parentheses.
ExpressionPointer Parser::readCommand(const CommandTerm &command, qsizetype length)
{
    const qsizetype from = m_at;
    const bool isStatement = from == m_statementStart;
    m_at += length;
    CommandExpression call { &command, nullptr, {} };
    const auto hasLabel = [&command](QStringView label) {
        return std::any_of(
            command.parameters.begin(), command.parameters.end(),
            [&](const ParameterTerm &parameter) { return parameter.label == label; });
    };
    const QScopedValueRollback allowed(
        m_allowed, { .of = m_allowed.of, .in = !hasLabel(u"in"), .as = !hasLabel(u"as") });
    const QScopedValueRollback<const CommandTerm *> current(m_command, &command);
    readDirect(call, isStatement ? disjunction : coercion);
    while (readArgument(call) || readFlags(call)) {
        if (call.arguments.size() > maxArguments)
            failSyntax(u"The command has too many parameters."_s);
    }
    return make(std::move(call), from);
}

void Parser::readDirect(CommandExpression &call, Precedence loosest)
{
    const CommandTerm &command = *call.command;
    const bool isOperand = command.direct == Direct::operand;
    if (command.direct == Direct::none)
        return;
    if (!command.choices.isEmpty()) {
        call.direct = readChoice(command.choices);
        if (!call.direct)
            failExpecting(u"one of "_s + command.choices.toString().replace(u'|', u", "_s));
        return;
    }
    if (isOperand && (accept(u"of") || accept(u"in") || accept(u"each")))
        call.direct = readOperand();
    else if (startsOperand())
        call.direct = readExpression(isOperand ? operand : loosest);
    else if (command.direct != Direct::optional)
        failExpecting(u"expression"_s);
}

const ParameterTerm *Parser::matchParameter(qsizetype ahead, bool isFlag) const
{
    const ParameterTerm *best = nullptr;
    qsizetype length = 0;
    for (const ParameterTerm &parameter :
         m_command ? m_command->parameters : std::span<const ParameterTerm>()) {
        const qsizetype matched = matchWords(parameter.label, m_tokens, m_at + ahead);
        const bool isKind = !isFlag || parameter.kind == ParameterTerm::Kind::flag;
        if (isKind && matched > length) {
            best = &parameter;
            length = matched;
        }
    }
    return best;
}

bool Parser::readArgument(CommandExpression &call)
{
    const ParameterTerm *parameter = matchParameter(0, false);
    const bool isUnlabelledClass
        = !parameter && call.command->words == u"make" && call.arguments.empty();
    if (isUnlabelledClass)
        parameter = &call.command->parameters.front(); // "make note" is "make new note"
    if (!parameter)
        return false;
    if (!isUnlabelledClass)
        m_at += parameter->label.count(u' ') + 1;
    call.arguments.push_back({ parameter, readArgumentValue(*parameter) });
    return true;
}

/// `with hidden answer`, `without altering line endings`, and more of them after `and`.
bool Parser::readFlags(CommandExpression &call)
{
    const bool value = isAt(u"with");
    if ((!value && !isAt(u"without")) || !matchParameter(1, true))
        return false;
    do {
        ++m_at;
        const ParameterTerm *parameter = matchParameter(0, true);
        if (!parameter)
            failExpecting(u"parameter name"_s);
        const qsizetype from = m_at;
        m_at += parameter->label.count(u' ') + 1;
        call.arguments.push_back({ parameter, make(Literal { Value(value) }, from) });
    } while (isAt(u"and") || isAt(u","));
    return true;
}

ExpressionPointer Parser::readArgumentValue(const ParameterTerm &parameter)
{
    if (parameter.kind == ParameterTerm::Kind::className)
        return readClassName();
    if (parameter.kind == ParameterTerm::Kind::choice) {
        if (ExpressionPointer choice = readChoice(parameter.choices))
            return choice;
    }
    return readExpression(coercion);
}

/// One of the choices as a text; nothing when none is here.
ExpressionPointer Parser::readChoice(QStringView choices)
{
    const qsizetype from = m_at;
    QStringView longest;
    for (const QStringView choice : choices.tokenize(u'|')) {
        if (matchWords(choice, m_tokens, m_at) > 0 && choice.size() > longest.size())
            longest = choice;
    }
    if (longest.isEmpty())
        return nullptr;
    accept(longest);
    return make(Literal { Value(longest.toString()) }, from);
}

ExpressionPointer Parser::readClassName()
{
    const qsizetype from = m_at;
    const Vocabulary::Match match = matchTerm();
    for (const auto kind : { NameTerm::Kind::element, NameTerm::Kind::type }) {
        if (const auto name = match.name(kind)) {
            m_at += match.length;
            return make(Literal { Value(ClassName { name->term->canonical().toString() }) }, from);
        }
    }
    failExpecting(u"class name"_s);
}

/// The call of a handler of this name, or nothing when the name is a variable.
ExpressionPointer Parser::readCall(const QString &name, qsizetype from)
{
    if (isAt(u"("))
        return readPositionalCall(name, from);
    if (!m_labelledHandlers.contains(name.toLower()))
        return nullptr;
    if (isAt(u":"))
        return readInterleavedCall(name, from);
    return readLabelledCall(name, from);
}

ExpressionPointer Parser::readPositionalCall(const QString &name, qsizetype from)
{
    const QScopedValueRollback allowed(m_allowed, {});
    const QScopedValueRollback<const CommandTerm *> none(m_command, nullptr);
    expect(u"(");
    CallExpression call { .name = name };
    if (!isAt(u")")) {
        do
            call.arguments.push_back(readExpression());
        while (accept(u","));
    }
    expect(u")");
    return make(std::move(call), from);
}

ExpressionPointer Parser::readLabelledCall(const QString &name, qsizetype from)
{
    CallExpression call { .name = name };
    const auto add = [&](const QString &label, ExpressionPointer value) {
        call.labels.append(label);
        call.arguments.push_back(std::move(value));
    };
    const auto acceptLabel = [this]() -> QString {
        for (const QStringView label : handlerLabels()) {
            if (accept(label))
                return label.toString();
        }
        return {};
    };
    if (isBeforeContainer()) {
        ++m_at;
        add(u"of"_s, readExpression(coercion));
    }
    while (true) {
        const QString label = acceptLabel();
        if (label.isEmpty())
            break;
        add(label, readExpression(coercion));
    }
    if (accept(u"given")) {
        do {
            const QString label = readIdentifier().toLower();
            expect(u":");
            add(label, readExpression(coercion));
        } while (accept(u","));
    }
    for (bool value = isAt(u"with"); isAt(u"with") || isAt(u"without"); value = isAt(u"with")) {
        ++m_at;
        do
            add(readIdentifier().toLower(), make(Literal { Value(value) }, m_at - 1));
        while (accept(u",") || accept(u"and"));
    }
    return call.arguments.empty() ? nullptr : make(std::move(call), from);
}

ExpressionPointer Parser::readInterleavedCall(const QString &name, qsizetype from)
{
    CallExpression call { .name = name };
    while (accept(u":")) {
        call.name += u':';
        call.arguments.push_back(readExpression(coercion));
        if (peek().kind <= Token::Kind::name && peek(1).text == u":")
            call.name += m_tokens.at(m_at++).text;
    }
    return make(std::move(call), from);
}

}
