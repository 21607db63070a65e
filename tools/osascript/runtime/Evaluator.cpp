// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/runtime/Evaluator.h"

#include "osascript/language/Parser.h"
#include "osascript/values/Coercion.h"
#include "osascript/values/Operators.h"
#include "osascript/values/ScriptError.h"
#include "osascript/values/StackLimit.h"

#include <QFileInfo>
#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

namespace Tessel::Osascript {

Evaluator::Evaluator(Host &host)
    : m_applications(host)
    , m_additions(host)
    , m_delimiters(Value::texts({ QString() }))
{
}

/// Values that hold each other in a circle, such as a script in its own property, are let go.
Evaluator::~Evaluator()
{
    for (const auto &script : m_scripts) {
        script->properties.clear();
        script->captured.clear();
        script->runVariables.clear();
    }
}

Value Evaluator::run(const QString &source, const QList<Value> &arguments)
{
    ParsedScript parsed = Parser(source, m_vocabulary).parse();
    checkApplications(parsed);
    m_blocks.push_back(std::make_unique<ScriptBlock>(std::move(parsed.script)));
    ScriptObject *script = instantiate(*m_blocks.back(), nullptr);
    const HandlerDefinition *handler = findHandler(script, u"run"_s);
    return call(script, *handler, arguments);
}

TextContext Evaluator::context() const
{
    TextContext context { m_rules, {} };
    for (const Value &delimiter : toItems(m_delimiters))
        context.delimiters.append(toText(delimiter, {}));
    return context;
}

Value Evaluator::evaluate(const Expression &expression)
{
    checkStack();
    try {
        return std::visit([this](const auto &form) { return evaluateForm(form); }, expression.form);
    } catch (ScriptError &error) {
        if (!error.where)
            error.where = expression.where;
        throw;
    }
}

Value Evaluator::valueOf(const ExpressionPointer &expression)
{
    return resolved(heldBy(expression));
}

Value Evaluator::heldBy(const ExpressionPointer &expression)
{
    Value value = evaluate(*expression);
    if (value.isNothing())
        throw ScriptError { u"No result was returned from some part of this expression."_s,
                            ScriptError::noResult, ScriptError::Phase::execution,
                            expression->where };
    return value;
}

Value Evaluator::optionalValueOf(const ExpressionPointer &expression)
{
    return expression ? valueOf(expression) : Value();
}

Value Evaluator::evaluateForm(const Literal &literal)
{
    return literal.value;
}

Value Evaluator::evaluateForm(const Variable &variable)
{
    if (const Value *value = findVariable(variable.name))
        return resolved(*value);
    ScriptObject *owner = frame().me;
    if (const HandlerDefinition *handler = findHandler(owner, variable.name))
        return Value(Handler { handler, owner, handler->name });
    fail(ScriptError::notDefined, u"The variable "_s + variable.name + u" is not defined."_s);
}

Value Evaluator::evaluateForm(const ListExpression &list)
{
    QList<Value> items;
    items.reserve(static_cast<qsizetype>(list.items.size()));
    for (const ExpressionPointer &item : list.items)
        items.append(heldBy(item));
    return Value::list(items);
}

Value Evaluator::evaluateForm(const RecordExpression &record)
{
    QList<Field> fields;
    for (qsizetype i = 0; i < record.names.size(); ++i)
        fields.append({ record.names.at(i), heldBy(record.values[static_cast<size_t>(i)]) });
    return Value::record(fields);
}

Value Evaluator::evaluateForm(const Negation &negation)
{
    const Value operand = valueOf(negation.operand);
    return negation.kind == Negation::Kind::logical ? Value(!toBoolean(operand)) : negated(operand);
}

Value Evaluator::evaluateForm(const OperatorExpression &expression)
{
    using enum Operation;
    if (expression.operation == isRunning || expression.operation == isNotRunning)
        return Value(runs(expression.left) == (expression.operation == isRunning));
    const Value left = valueOf(expression.left);
    switch (expression.operation) {
    case conjunction:
        return Value(toBoolean(left) && toBoolean(valueOf(expression.right)));
    case disjunction:
        return Value(toBoolean(left) || toBoolean(valueOf(expression.right)));
    case coerce:
        return coercedTo(left, *expression.right);
    default:
        return applied(expression.operation, left, valueOf(expression.right), context());
    }
}

/// An application that is not there does not run.
bool Evaluator::runs(const ExpressionPointer &application)
{
    try {
        return toBoolean(propertyOf(valueOf(application), u"running"_s));
    } catch (const ScriptError &error) {
        if (error.number != ScriptError::cannotGet)
            throw;
    }
    return false;
}

/// Elements of applications know themselves what they can be.
Value Evaluator::coercedTo(const Value &value, const QString &className)
{
    const auto *object = value.as<Object>();
    const Value own = object ? applicationOf(*object).property(*object, className) : Value();
    return own.isNothing() ? coerced(value, className, context()) : own;
}

/// The first of the classes that the value can be made into.
Value Evaluator::coercedTo(const Value &value, const Expression &classes)
{
    const Value target = evaluate(classes);
    const QList<Value> choices = toItems(target);
    for (qsizetype i = 0; i < choices.size(); ++i) {
        try {
            return coercedTo(value, choices.at(i).get<ClassName>().name);
        } catch (const ScriptError &) {
            if (i + 1 == choices.size())
                throw;
        }
    }
    return {};
}

Value Evaluator::evaluateForm(const PropertyExpression &property)
{
    return resolved(property.container ? propertyOf(property.container, property.name)
                                       : ownProperty(property.name));
}

Value Evaluator::evaluateForm(const DistributedExpression &distributed)
{
    const QScopedValueRollback told(frame().it, valueOf(distributed.container));
    const QScopedValueRollback many(frame().isMany, isMany(*distributed.container));
    return evaluate(*distributed.list);
}

Value Evaluator::evaluateForm(const Pronoun &pronoun)
{
    return pronoun.kind == Pronoun::Kind::me ? Value(frame().me) : frame().it;
}

Value Evaluator::evaluateForm(const ReferenceExpression &reference)
{
    ExpressionPointer place = closed(reference.target);
    return Value(
        ReferencePointer(std::make_shared<const Reference>(Reference { std::move(place) })));
}

Value Evaluator::evaluateForm(const ExistsExpression &exists)
{
    try {
        const Value value = resolved(evaluate(*exists.operand));
        const auto *file = value.as<File>();
        return Value(file ? QFileInfo::exists(file->path) : !value.isNothing());
    } catch (const ScriptError &error) {
        const bool isAbsent = error.number == ScriptError::cannotGet
            || error.number == ScriptError::invalidIndex || error.number == -43;
        if (!isAbsent)
            throw;
    }
    return Value(false);
}

}
