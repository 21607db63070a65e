// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/runtime/Evaluator.h"

#include "osascript/values/Coercion.h"
#include "osascript/values/DateValue.h"
#include "osascript/values/ObjectOwner.h"
#include "osascript/values/Printer.h"
#include "osascript/values/ScriptError.h"

#include <QRandomGenerator>
#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

namespace Tessel::Osascript {

namespace {

using Form = ElementExpression::Form;

qint64 randomIndex(qsizetype count)
{
    return QRandomGenerator::global()->bounded(static_cast<quint32>(count)) + 1;
}

bool isTextClass(const QString &className)
{
    return className == u"character" || className == u"word" || className == u"paragraph"
        || className == u"text" || className == u"text item";
}

}

/// `word 1 of every paragraph`: of each of them, not of the list.
bool Evaluator::isDistributed(const ElementExpression &element)
{
    const auto *container
        = element.container ? std::get_if<ElementExpression>(&element.container->form) : nullptr;
    return container && container->form == Form::every && container->className != u"item"
        && isTextClass(element.className);
}

Value Evaluator::evaluateForm(const ElementExpression &element)
{
    if (Value named = namedValue(element); !named.isNothing())
        return named;
    const Value container = element.container ? valueOf(element.container) : frame().it;
    if (!isDistributed(element) || !container.isList())
        return resolved(elementOf(element, container));
    QList<Value> values;
    for (const Value &item : container.items())
        values.append(elementOf(element, item));
    return Value::list(values);
}

/// `date "…"`, `application "…"`, `alias "…"`, `file "…"`: values that are written as elements.
Value Evaluator::namedValue(const ElementExpression &element)
{
    const QString &name = element.className;
    const bool isFile = name == u"alias" || name == u"file";
    const bool isNamed = name == u"application" || name == u"date" || isFile;
    const bool hasKey = element.key && element.form <= Form::identifier;
    if (!isNamed || !hasKey || element.container)
        return {};
    const Value key = valueOf(element.key);
    if (!key.isText())
        return isFile && key.is<File>() ? coerced(key, name, context()) : Value();
    const QString &text = key.get<QString>();
    // In an application, the name of one of its files; a whole path is a path everywhere.
    if (name == u"file" && frame().it.is<Object>() && !text.startsWith(u'/'))
        return {};
    if (name == u"application") {
        Application *application = m_applications.find(text);
        if (!application)
            failToGet(u"application "_s + quoted(text));
        return application->object();
    }
    if (name != u"date")
        return coerced(key, name, context());
    const auto date = parseDate(text);
    if (!date)
        failWith(-30720, u"Invalid date and time date "_s + quoted(text) + u'.');
    return Value::date(*date);
}

Value Evaluator::elementOf(const ElementExpression &element, const Value &container)
{
    if (const auto *object = container.as<Object>())
        return objectOf(element, *object);
    if (element.filter)
        failToGet(element.className + u" of "_s + printed(container) + u" whose test is true"_s);
    if (element.form == Form::insertion)
        return insertedAt(element, container);
    if (element.form == Form::index)
        return elementAt(container, element.className, toInteger(valueOf(element.key)), context());
    const ValueElements elements(container, element.className, context());
    switch (element.form) {
    case Form::every:
        return Value::list(elements.all());
    case Form::some:
        return elements.at(elements.count() > 0 ? randomIndex(elements.count()) : 1);
    case Form::middle:
        return elements.at((elements.count() + 1) / 2);
    case Form::range:
        return rangeOf(element, elements, container);
    default:
        failToGet(element.className + u' ' + printed(valueOf(element.key)) + u" of "_s
                  + printed(container));
    }
}

/// `end of x` is its last item.
Value Evaluator::insertedAt(const ElementExpression &element, const Value &container)
{
    return ValueElements(container, u"item"_s, context()).at(toInteger(valueOf(element.key)));
}

/// The ends of a stretch of text may be elements themselves: `text from word 2 to word 4`.
Value Evaluator::rangeOf(const ElementExpression &element, const ValueElements &elements,
                         const Value &container)
{
    const bool isBounded = container.isText() && element.className == u"text"
        && (std::holds_alternative<ElementExpression>(element.key->form)
            || std::holds_alternative<ElementExpression>(element.lastKey->form));
    if (!isBounded)
        return elements.range(toInteger(valueOf(element.key)), toInteger(valueOf(element.lastKey)));
    const QString &text = container.get<QString>();
    return textBetween(text, boundary(element.key, text), boundary(element.lastKey, text));
}

TextRange Evaluator::boundary(const ExpressionPointer &key, const QString &text)
{
    const auto *element = std::get_if<ElementExpression>(&key->form);
    const bool isOwn = element && element->form == Form::index && !element->container;
    const ValueElements elements(Value(text), isOwn ? element->className : u"character"_s,
                                 context());
    return elements.rangeAt(toInteger(valueOf(isOwn ? element->key : key)));
}

QList<Object> Evaluator::filtered(QList<Object> objects, const ExpressionPointer &filter)
{
    if (!filter)
        return objects;
    objects.removeIf([&](const Object &object) {
        const QScopedValueRollback told(frame().it, Value(object));
        const QScopedValueRollback one(frame().isMany, false);
        return !toBoolean(valueOf(filter));
    });
    return objects;
}

Value Evaluator::objectOf(const ElementExpression &element, const Object &container)
{
    Application &application = applicationOf(container);
    const QString &className = element.className;
    const Value key = optionalValueOf(element.key);
    const bool isNamed = element.form == Form::name || element.form == Form::identifier
        || (element.form == Form::index && key.isText());
    if (isNamed && application.acceptsName(className))
        return Value(Object { &application, className, toText(key, context()) });
    const QList<Object> objects = filtered(
        m_applications.ask(application, [&] { return application.elements(container, className); }),
        element.filter);
    return m_applications.ask(application, [&] {
        return isNamed ? objectNamed(toText(key, context()), className, objects)
                       : objectAmong(objects, element, key);
    });
}

Value Evaluator::objectNamed(const QString &name, const QString &className,
                             const QList<Object> &objects)
{
    for (const Object &object : objects) {
        if (object.owner->nameOf(object).compare(name, Qt::CaseInsensitive) == 0)
            return Value(object);
    }
    failToGet(className + u' ' + quoted(name));
}

Value Evaluator::objectAmong(const QList<Object> &objects, const ElementExpression &element,
                             const Value &key)
{
    QList<Value> values;
    for (const Object &object : objects)
        values.append(Value(object));
    Value all = Value::list(values);
    if (element.form == Form::every)
        return all;
    if (element.form == Form::range)
        return ValueElements(all, u"item"_s, context())
            .range(toInteger(key), toInteger(valueOf(element.lastKey)));
    const qsizetype count = objects.size();
    const qint64 index = element.form == Form::some ? randomIndex(std::max<qsizetype>(count, 1))
        : element.form == Form::middle              ? (count + 1) / 2
                                                    : toInteger(key);
    const qsizetype position = index < 0 ? count + index : index - 1;
    if (index == 0 || position < 0 || position >= count)
        fail(ScriptError::invalidIndex,
             u"Can’t get %1 %2. Invalid index."_s.arg(element.className).arg(index));
    return values.at(position);
}

}
