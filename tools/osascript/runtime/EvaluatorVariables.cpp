// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/runtime/Evaluator.h"

#include "osascript/values/Coercion.h"
#include "osascript/values/Printer.h"
#include "osascript/values/ScriptError.h"
#include "osascript/values/ValueProperties.h"

#include <QScopedValueRollback>

#include <numbers>

using namespace Qt::StringLiterals;

namespace Tessel::Osascript {

namespace {

void checkCycle(const Value &value, const Value &container)
{
    if (contains(value, container))
        fail(ScriptError::stackOverflow, u"Stack overflow."_s);
}

Value *find(Variables &variables, const QString &key)
{
    const auto variable = variables.find(key);
    return variable == variables.end() ? nullptr : &*variable;
}

bool isLanguage(const Value &value)
{
    const auto *constant = value.as<Constant>();
    return constant && constant->name == u"AppleScript";
}

/// Asked of many things, it is a property of their list.
bool isOfList(const QString &name)
{
    return name == u"length" || name == u"number" || name == u"reverse" || name == u"rest";
}

}

Value *Evaluator::findProperty(ScriptObject *script, const QString &name)
{
    for (; script; script = script->outer) {
        if (Value *property = find(script->properties, name.toLower()))
            return property;
    }
    return nullptr;
}

/// What the script's handlers see without its being theirs: properties, and the variables around
/// the script.
Value *Evaluator::findVisible(ScriptObject *script, const QString &name)
{
    const QString key = name.toLower();
    for (; script; script = script->outer) {
        Value *property = find(script->properties, key);
        if (Value *value = property ? property : find(script->captured, key))
            return value;
    }
    return nullptr;
}

/// What can be asked of a script from outside: its properties, and the variables of its run
/// handler.
Value *Evaluator::findScriptVariable(ScriptObject *script, const QString &name)
{
    const QString key = name.toLower();
    if (script->globals.contains(key))
        return find(m_globals, key);
    Value *own = find(script->runVariables, key);
    return own ? own : findProperty(script, name);
}

bool Evaluator::isGlobal(const QString &key) const
{
    return !m_frame->locals.contains(key)
        && (m_frame->globals.contains(key) || m_frame->me->globals.contains(key));
}

Value *Evaluator::findVariable(const QString &name)
{
    const QString key = name.toLower();
    if (isGlobal(key))
        return find(m_globals, key);
    Value *variable = find(*frame().variables, key);
    const bool isLocal = frame().locals.contains(key);
    return variable || isLocal ? variable : findVisible(frame().me, name);
}

void Evaluator::setVariable(const QString &name, const Value &value)
{
    const QString key = name.toLower();
    const bool isLocal = frame().locals.contains(key) || frame().variables->contains(key);
    Value *property = isLocal || isGlobal(key) ? nullptr : findProperty(frame().me, name);
    if (property)
        *property = value;
    else
        (isGlobal(key) ? m_globals : *frame().variables).insert(key, value);
}

Value Evaluator::resolved(const Value &value)
{
    const auto *reference = value.as<ReferencePointer>();
    return reference ? evaluate(*(*reference)->place) : value;
}

/// Whether the expression stands for any number of elements, which are asked one by one: `name of
/// every process`.
bool Evaluator::isMany(const Expression &expression) const
{
    if (const auto *pronoun = std::get_if<Pronoun>(&expression.form))
        return pronoun->kind == Pronoun::Kind::it && m_frame->isMany;
    if (const auto *property = std::get_if<PropertyExpression>(&expression.form))
        return property->container && !isOfList(property->name) && isMany(*property->container);
    const auto *element = std::get_if<ElementExpression>(&expression.form);
    return element
        && (element->form == ElementExpression::Form::every
            || element->form == ElementExpression::Form::range || isDistributed(*element));
}

Value Evaluator::propertyOf(const ExpressionPointer &container, const QString &name)
{
    const Value value = valueOf(container);
    return isMany(*container) ? propertyOfEach(value, name) : propertyOf(value, name);
}

Value Evaluator::propertyOfEach(const Value &container, const QString &name)
{
    if (!container.isList() || isOfList(name))
        return propertyOf(container, name);
    QList<Value> values;
    for (const Value &item : container.items())
        values.append(propertyOf(item, name));
    return Value::list(values);
}

Value Evaluator::propertyOf(const Value &container, const QString &name)
{
    if (const auto *object = container.as<Object>()) {
        const Value value = m_applications.property(*object, name);
        return value.isNothing() ? valueProperty(container, name, context()) : value;
    }
    if (auto *const *script = container.as<ScriptObject *>()) {
        if (const Value *own = findScriptVariable(*script, name))
            return resolved(*own);
        if (name == u"name")
            return Value((*script)->name);
    }
    const bool isLanguageOrScript = isLanguage(container) || container.is<ScriptObject *>();
    Value language = isLanguageOrScript ? languageProperty(name) : Value();
    return language.isNothing() ? valueProperty(container, name, context()) : language;
}

Value Evaluator::languageProperty(const QString &name)
{
    if (name == u"text item delimiters")
        return m_delimiters;
    if (name == u"version")
        return Value(u"2.8"_s);
    return {};
}

/// A property without a container belongs to what is told, then to AppleScript; a name that none of
/// them has can be a variable.
Value Evaluator::ownProperty(const QString &name)
{
    if (name == u"result") {
        if (frame().result.isNothing())
            fail(ScriptError::notDefined, u"The variable result is not defined."_s);
        return frame().result;
    }
    if (const auto *object = frame().it.as<Object>()) {
        Value value = m_applications.property(*object, name);
        if (!value.isNothing())
            return value;
    }
    if (const Value *variable = findVariable(name))
        return resolved(*variable);
    Value language = languageProperty(name);
    if (!language.isNothing())
        return language;
    return frame().isMany ? propertyOfEach(frame().it, name) : propertyOf(frame().it, name);
}

/// The place with values for all of its parts. Variables of handlers are no places: they are gone
/// when the handler has ended.
ExpressionPointer Evaluator::closed(const ExpressionPointer &place)
{
    const auto literal = [&](Value value) {
        return std::make_unique<Expression>(
            Expression { Literal { std::move(value) }, place->where });
    };
    const auto make = [&](Expression::Form form) {
        return std::make_unique<Expression>(Expression { std::move(form), place->where });
    };
    if (const auto *variable = std::get_if<Variable>(&place->form)) {
        const bool isOfScript = frame().variables == &frame().me->runVariables
            || !frame().variables->contains(variable->name.toLower());
        if (isOfScript && findVariable(variable->name))
            return make(PropertyExpression { variable->name, literal(Value(frame().me)) });
    } else if (const auto *property = std::get_if<PropertyExpression>(&place->form)) {
        ExpressionPointer container
            = property->container ? closed(property->container) : literal(frame().it);
        return make(PropertyExpression { property->name, std::move(container) });
    } else if (const auto *element = std::get_if<ElementExpression>(&place->form);
               element && element->container && !element->filter) {
        ElementExpression copy { .className = element->className, .form = element->form };
        copy.key = element->key ? literal(valueOf(element->key)) : nullptr;
        copy.lastKey = element->lastKey ? literal(valueOf(element->lastKey)) : nullptr;
        copy.container = closed(element->container);
        return make(std::move(copy));
    }
    return literal(valueOf(place));
}

void Evaluator::assign(const Expression &target, const Value &value)
{
    try {
        std::visit(
            [&]<typename Form>(const Form &form) {
                if constexpr (requires { assignForm(form, value); })
                    assignForm(form, value);
                else
                    failToSet(printed(evaluate(target)), printed(value));
            },
            target.form);
    } catch (ScriptError &error) {
        if (!error.where)
            error.where = target.where;
        throw;
    }
}

void Evaluator::assignForm(const Variable &target, const Value &value)
{
    setVariable(target.name, value);
}

void Evaluator::assignForm(const PropertyExpression &target, const Value &value)
{
    if (!target.container)
        setOwnProperty(target.name, value);
    else if (target.name != u"contents" || !setContents(target.container, value))
        setProperty(target.container, target.name, value);
}

void Evaluator::setProperty(const ExpressionPointer &container, const QString &name,
                            const Value &value)
{
    const Value owner = valueOf(container);
    for (const Value &each :
         isMany(*container) && owner.isList() ? owner.items() : QList<Value> { owner })
        setProperty(each, name, value);
}

/// False when the place holds no reference.
bool Evaluator::setContents(const ExpressionPointer &place, const Value &value)
{
    const auto *variable = std::get_if<Variable>(&place->form);
    const Value *held = variable ? findVariable(variable->name) : nullptr;
    const auto *reference = held ? held->as<ReferencePointer>() : nullptr;
    if (!reference)
        return false;
    const ReferencePointer kept = *reference; // the assignment may end the variable's hold on it
    assign(*kept->place, value);
    return true;
}

void Evaluator::setOwnProperty(const QString &name, const Value &value)
{
    if (const auto *object = frame().it.as<Object>()) {
        if (m_applications.setProperty(*object, name, value))
            return;
    }
    if (name == u"text item delimiters")
        m_delimiters = value;
    else if (const auto *told = frame().it.as<RecordPointer>(); told && (*told)->find(name))
        setValueProperty(frame().it, name, value);
    else
        setVariable(name, value);
}

void Evaluator::setProperty(const Value &container, const QString &name, const Value &value)
{
    const bool isDelimiters = name == u"text item delimiters";
    if (const auto *object = container.as<Object>()) {
        if (!m_applications.setProperty(*object, name, value))
            failToSet(name + u" of "_s + printed(container), printed(value));
    } else if (isDelimiters && (isLanguage(container) || container.is<ScriptObject *>())) {
        m_delimiters = value;
    } else if (auto *const *script = container.as<ScriptObject *>()) {
        Value *own = findScriptVariable(*script, name);
        if (!own)
            failToSet(name + u" of "_s + printed(container), printed(value));
        *own = value;
    } else {
        setValueProperty(container, name, value);
    }
}

void Evaluator::assignForm(const ElementExpression &target, const Value &value)
{
    using enum ElementExpression::Form;
    const Value container = target.container ? valueOf(target.container) : frame().it;
    const auto *list = container.as<ListPointer>();
    const bool isPlace = list && target.key && !target.filter
        && (target.form == insertion || (target.form == index && target.className == u"item"));
    if (!isPlace)
        failToSet(target.className + u" of "_s + printed(container), printed(value));
    checkCycle(value, container);
    QList<Value> &items = (*list)->items;
    const qint64 key = toInteger(valueOf(target.key));
    if (target.form == insertion) {
        checkListSize(items.size() + 1);
        items.insert(key < 0 ? items.size() : 0, value);
        return;
    }
    const qsizetype at = key < 0 ? items.size() + key : key - 1;
    if (key == 0 || at < 0 || at >= items.size())
        failToSet(u"item %1 of "_s.arg(key) + printed(container), printed(value));
    items[at] = value;
}

void Evaluator::assignForm(const ListExpression &target, const Value &value)
{
    const QList<Value> items = toItems(value);
    for (size_t i = 0; i < target.items.size(); ++i) {
        const auto at = static_cast<qsizetype>(i);
        if (at >= items.size())
            failToGet(u"item %1 of "_s.arg(at + 1) + printed(value));
        assign(*target.items[i], items.at(at));
    }
}

void Evaluator::assignForm(const DistributedExpression &target, const Value &value)
{
    const QScopedValueRollback told(frame().it, valueOf(target.container));
    const QScopedValueRollback many(frame().isMany, isMany(*target.container));
    assign(*target.list, value);
}

void Evaluator::assignForm(const RecordExpression &target, const Value &value)
{
    for (qsizetype i = 0; i < target.names.size(); ++i)
        assign(*target.values[static_cast<size_t>(i)], propertyOf(value, target.names.at(i)));
}

}
