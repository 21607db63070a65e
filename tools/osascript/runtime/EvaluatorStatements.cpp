// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/runtime/Evaluator.h"

#include "osascript/values/Coercion.h"
#include "osascript/values/Printer.h"
#include "osascript/values/ScriptError.h"
#include "osascript/values/StackLimit.h"

#include <QHash>
#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

namespace Tessel::Osascript {

/// What `error` can raise an error with, and `on error` can ask for.
struct ErrorParts
{
    Value source = Value(Missing()); ///< `from`: what the error is about
    Value wanted = Value(Missing()); ///< `to`: the class that something could not be made into
    Value partialResult = Value::list({});
};

namespace {

/// What an error says that a script raises by its number alone: AppleScript Language Guide, "Error
/// Numbers and Error Messages", without the parts that name what it was about.
QString usualMessage(int number)
{
    static const QHash<int, QString> messages {
        { -37, u"Bad name for file."_s },
        { -39, u"End of file error."_s },
        { -43, u"File not found."_s },
        { -48, u"Duplicate file name."_s },
        { -49, u"File already open."_s },
        { -50, u"Parameter error."_s },
        { -54, u"File permission error."_s },
        { -108, u"Out of memory."_s },
        { -120, u"Folder not found."_s },
        { -128, u"User canceled."_s },
        { -600, u"Application isn’t running."_s },
        { -609, u"Connection is invalid."_s },
        { -1700, u"Can’t make some data into the expected type."_s },
        { -1701, u"Some parameter is missing."_s },
        { -1708, u"The message was not understood."_s },
        { -1712, u"AppleEvent timed out."_s },
        { -1713, u"No user interaction allowed."_s },
        { -1719, u"Invalid index."_s },
        { -1728, u"Can’t get the object."_s },
        { -2701, u"Can’t divide by zero."_s },
        { -2702, u"The result of a numeric operation was too large."_s },
        { -10000, u"AppleEvent handler failed."_s },
        { -10004, u"A privilege violation occurred."_s },
        { -10006, u"Can’t set the object."_s },
    };
    return messages.value(number, u"An error of type %1 has occurred."_s.arg(number));
}

void apply(ConsideringStatement::Attribute attribute, bool considers, ComparisonRules &rules)
{
    using enum ConsideringStatement::Attribute;
    switch (attribute) {
    case letterCase:
        rules.ignoresCase = !considers;
        break;
    case diacriticals:
        rules.ignoresDiacriticals = !considers;
        break;
    case whiteSpace:
        rules.ignoresWhiteSpace = !considers;
        break;
    case punctuation:
        rules.ignoresPunctuation = !considers;
        break;
    case hyphens:
        rules.ignoresHyphens = !considers;
        break;
    case numericStrings:
        rules.comparesNumbers = considers;
        break;
    }
}

}

Evaluator::Flow Evaluator::execute(const Statements &statements)
{
    checkStack();
    for (const Statement &statement : statements) {
        try {
            const Flow flow = std::visit([this](const auto &form) { return executeForm(form); },
                                         statement.form);
            if (flow != Flow::next)
                return flow;
        } catch (ScriptError &error) {
            if (!error.where)
                error.where = statement.where;
            throw;
        }
    }
    return Flow::next;
}

Evaluator::Flow Evaluator::executeForm(const ExpressionStatement &statement)
{
    frame().result = evaluate(*statement.value);
    return Flow::next;
}

Evaluator::Flow Evaluator::executeForm(const Assignment &assignment)
{
    // "set x to a reference to y" keeps the reference; "copy" takes what it refers to.
    const Value value = heldBy(assignment.value);
    const Value assigned = assignment.copies ? deepCopy(resolved(value)) : value;
    assign(*assignment.target, assigned);
    frame().result = assigned;
    return Flow::next;
}

Evaluator::Flow Evaluator::executeForm(const IfStatement &statement)
{
    for (const auto &[test, body] : statement.branches) {
        if (!test || toBoolean(valueOf(test)))
            return execute(body);
    }
    return Flow::next;
}

Evaluator::Flow Evaluator::executeForm(const RepeatStatement &repeat)
{
    if (repeat.form == RepeatStatement::Form::counting)
        return repeatCounting(repeat);
    if (repeat.form == RepeatStatement::Form::iterating)
        return repeatOver(repeat);
    qint64 left
        = repeat.form == RepeatStatement::Form::times ? toInteger(valueOf(repeat.value)) : 0;
    while (continues(repeat, left)) {
        const Flow flow = execute(repeat.body);
        if (flow != Flow::next)
            return flow == Flow::exitRepeat ? Flow::next : flow;
    }
    return Flow::next;
}

bool Evaluator::continues(const RepeatStatement &repeat, qint64 &left)
{
    using enum RepeatStatement::Form;
    switch (repeat.form) {
    case times:
        return left-- > 0;
    case whileTrue:
        return toBoolean(valueOf(repeat.value));
    case untilTrue:
        return !toBoolean(valueOf(repeat.value));
    default:
        return true;
    }
}

Evaluator::Flow Evaluator::repeatCounting(const RepeatStatement &repeat)
{
    const qint64 first = toInteger(valueOf(repeat.value));
    const qint64 last = toInteger(valueOf(repeat.last));
    const qint64 step = repeat.step ? toInteger(valueOf(repeat.step)) : 1;
    if (step == 0)
        failToCoerce(u"0"_s, u"number other than 0"_s);
    for (qint64 i = first; step > 0 ? i <= last : i >= last; i += step) {
        setVariable(repeat.variable, Value(i));
        const Flow flow = execute(repeat.body);
        if (flow != Flow::next)
            return flow == Flow::exitRepeat ? Flow::next : flow;
    }
    return Flow::next;
}

/// The variable refers to the items, so that `set contents of x` changes the list.
Evaluator::Flow Evaluator::repeatOver(const RepeatStatement &repeat)
{
    const Value value = valueOf(repeat.value);
    const Value list = value.isList()
        ? value
        : Value::list(value.isText() ? ValueElements(value, u"item"_s, context()).all()
                                     : toItems(value));
    const auto literal = [](const Value &part) {
        return std::make_unique<Expression>(Expression { Literal { part }, {} });
    };
    const qsizetype count = list.items().size();
    for (qsizetype i = 1; i <= count; ++i) {
        ElementExpression item { .className = u"item"_s, .form = ElementExpression::Form::index };
        item.key = literal(Value(qint64 { i }));
        item.container = literal(list);
        auto place = std::make_unique<Expression>(Expression { std::move(item), {} });
        setVariable(repeat.variable,
                    Value(ReferencePointer(
                        std::make_shared<const Reference>(Reference { std::move(place) }))));
        const Flow flow = execute(repeat.body);
        if (flow != Flow::next)
            return flow == Flow::exitRepeat ? Flow::next : flow;
    }
    return Flow::next;
}

Evaluator::Flow Evaluator::executeForm(const ExitRepeat & /*statement*/)
{
    return Flow::exitRepeat;
}

Evaluator::Flow Evaluator::executeForm(const ReturnStatement &statement)
{
    frame().result = statement.value ? evaluate(*statement.value) : Value();
    return Flow::returned;
}

Evaluator::Flow Evaluator::executeForm(const TryStatement &statement)
{
    std::optional<ScriptError> caught;
    try {
        return execute(statement.body);
    } catch (const ScriptError &error) {
        if (statement.onlyNumber && *statement.onlyNumber != error.number)
            throw;
        caught = error;
    }
    const ErrorParts parts = caught->parts ? *caught->parts : ErrorParts();
    const std::pair<QString, Value> variables[] {
        { statement.message, Value(caught->message) },
        { statement.number, Value(qint64 { caught->number }) },
        { statement.source, parts.source },
        { statement.wanted, parts.wanted },
        { statement.partialResult, parts.partialResult },
    };
    for (const auto &[variable, value] : variables) {
        if (!variable.isEmpty())
            setVariable(variable, value);
    }
    return execute(statement.handler);
}

Evaluator::Flow Evaluator::executeForm(const ErrorStatement &error)
{
    ScriptError raised;
    if (error.number)
        raised.number = static_cast<int>(toInteger(valueOf(error.number)));
    raised.message
        = error.message ? toText(valueOf(error.message), context()) : usualMessage(raised.number);
    ErrorParts parts;
    if (error.source)
        parts.source = valueOf(error.source);
    if (error.wanted)
        parts.wanted = valueOf(error.wanted);
    if (error.partialResult)
        parts.partialResult = valueOf(error.partialResult);
    raised.parts = std::make_shared<const ErrorParts>(std::move(parts));
    throw raised;
}

Evaluator::Flow Evaluator::executeForm(const TellStatement &tell)
{
    const QScopedValueRollback told(frame().it, valueOf(tell.target));
    const QScopedValueRollback many(frame().isMany, isMany(*tell.target));
    return execute(tell.body);
}

Evaluator::Flow Evaluator::executeForm(const ConsideringStatement &statement)
{
    ComparisonRules rules = m_rules;
    for (const auto attribute : statement.considered)
        apply(attribute, true, rules);
    for (const auto attribute : statement.ignored)
        apply(attribute, false, rules);
    const QScopedValueRollback changed(m_rules, rules);
    return execute(statement.body);
}

Evaluator::Flow Evaluator::executeForm(const Declaration &declaration)
{
    const bool isGlobal = declaration.scope == Declaration::Scope::global;
    for (const QString &name : declaration.names)
        (isGlobal ? frame().globals : frame().locals).insert(name.toLower());
    return Flow::next;
}

Evaluator::Flow Evaluator::executeForm(const Block &block)
{
    return execute(block.body);
}

Evaluator::Flow Evaluator::executeForm(const ScriptStatement &statement)
{
    ScriptObject *script = instantiate(*statement.script, frame().me, *frame().variables);
    if (!script->name.isEmpty())
        setVariable(script->name, Value(script));
    frame().result = Value(script);
    return Flow::next;
}

}
