// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/values/Coercion.h"

#include "osascript/values/DateValue.h"
#include "osascript/values/NumberFormat.h"
#include "osascript/values/Printer.h"
#include "osascript/values/ScriptError.h"
#include "osascript/values/StackLimit.h"
#include "osascript/values/TextItemDelimiters.h"

#include <QFileInfo>
#include <QHash>

#include <cmath>

using namespace Qt::StringLiterals;

namespace Tessel::Osascript {

namespace {

[[noreturn]] void failToMake(const Value &value, const QString &className)
{
    failToCoerce(printed(value), className);
}

QString constantClass(const Constant &constant)
{
    if (monthNumber(constant.name) > 0)
        return u"month"_s;
    return weekdayNumber(constant.name) > 0 ? u"weekday"_s : u"constant"_s;
}

QString joinedText(const QList<Value> &items, const TextContext &context)
{
    checkStack();
    QStringList texts;
    texts.reserve(items.size());
    for (const Value &item : items)
        texts.append(toText(item, context));
    return joined(texts, context);
}

/// A list of one item stands for its item.
const Value &singleItem(const Value &value)
{
    checkStack();
    return value.isList() && value.items().size() == 1 ? singleItem(value.items().constFirst())
                                                       : value;
}

Value toDate(const Value &value)
{
    if (value.is<DatePointer>())
        return value;
    const auto *text = value.as<QString>();
    const auto date = text ? parseDate(*text) : std::nullopt;
    return date ? Value::date(*date) : (failToMake(value, u"date"_s), Value());
}

Value toFile(const Value &value, bool isAlias)
{
    const auto *file = value.as<File>();
    const auto *text = value.as<QString>();
    if (!file && !text)
        failToMake(value, isAlias ? u"alias"_s : u"file"_s);
    const QString path = file ? file->path : *text;
    if (isAlias && !QFileInfo::exists(path))
        failWith(-43, u"File "_s + path + u" wasn’t found."_s);
    return Value(File { path, isAlias });
}

Value toRecord(const Value &value)
{
    return value.is<RecordPointer>() ? value : (failToMake(value, u"record"_s), Value());
}

Value toConstant(const Value &value)
{
    return value.is<Constant>() ? value : (failToMake(value, u"constant"_s), Value());
}

}

QString classOf(const Value &value)
{
    if (const auto *record = value.as<RecordPointer>()) {
        const Value *own = (*record)->find(u"class");
        return own && own->is<ClassName>() ? own->get<ClassName>().name : u"record"_s;
    }
    if (const auto *constant = value.as<Constant>())
        return constantClass(*constant);
    if (const auto *object = value.as<Object>())
        return object->className;
    if (const auto *file = value.as<File>())
        return file->isAlias ? u"alias"_s : u"file"_s;
    static const QHash<size_t, QString> names {
        { Value(Missing()).data().index(), u"class"_s },
        { Value(true).data().index(), u"boolean"_s },
        { Value(qint64 {}).data().index(), u"integer"_s },
        { Value(double {}).data().index(), u"real"_s },
        { Value(QString()).data().index(), u"text"_s },
        { Value::list({}).data().index(), u"list"_s },
        { Value(DatePointer()).data().index(), u"date"_s },
        { Value(ClassName()).data().index(), u"class"_s },
        { Value(static_cast<ScriptObject *>(nullptr)).data().index(), u"script"_s },
        { Value(Handler()).data().index(), u"handler"_s },
        { Value(ReferencePointer()).data().index(), u"reference"_s },
    };
    return names.value(value.data().index());
}

QString toText(const Value &value, const TextContext &context)
{
    if (const auto *text = value.as<QString>())
        return *text;
    if (value.isList())
        return joinedText(value.items(), context);
    if (const auto *date = value.as<DatePointer>())
        return formatDate(**date);
    if (const auto *file = value.as<File>())
        return file->path;
    const bool isPlain = value.isNumber() || value.is<bool>() || value.is<Constant>()
        || value.is<ClassName>() || value.is<Missing>();
    return isPlain ? printed(value) : (failToMake(value, u"text"_s), QString());
}

Value toNumber(const Value &value)
{
    const Value &single = singleItem(value);
    if (single.isNumber())
        return single;
    if (const auto *text = single.as<QString>()) {
        if (const auto number = parseNumber(*text))
            return *number;
    }
    if (const auto *truth = single.as<bool>())
        return Value(qint64 { *truth ? 1 : 0 });
    if (const auto *constant = single.as<Constant>()) {
        const int number = std::max(monthNumber(constant->name), weekdayNumber(constant->name));
        if (number > 0)
            return Value(qint64 { number });
    }
    failToMake(value, u"number"_s);
}

double toReal(const Value &value)
{
    const Value number = toNumber(value);
    const auto *integer = number.as<qint64>();
    return integer ? static_cast<double>(*integer) : number.get<double>();
}

qint64 toInteger(const Value &value)
{
    constexpr double maxWhole = 9e15;
    const double number = std::nearbyint(toReal(value)); // halves to the even
    if (!(std::abs(number) < maxWhole))
        failToMake(value, u"integer"_s);
    return static_cast<qint64>(number);
}

bool toBoolean(const Value &value)
{
    const Value &single = singleItem(value);
    if (const auto *truth = single.as<bool>())
        return *truth;
    if (const auto *number = single.as<qint64>())
        return *number != 0;
    if (const auto *text = single.as<QString>()) {
        const bool isTrue = text->compare(u"true", Qt::CaseInsensitive) == 0;
        if (isTrue || text->compare(u"false", Qt::CaseInsensitive) == 0)
            return isTrue;
    }
    failToMake(value, u"boolean"_s);
}

QList<Value> toItems(const Value &value)
{
    if (value.isList())
        return value.items();
    const auto *record = value.as<RecordPointer>();
    if (!record)
        return { value };
    QList<Value> values;
    for (const Field &field : (*record)->fields)
        values.append(field.value);
    return values;
}

Value coerced(const Value &value, const QString &className, const TextContext &context)
{
    using Function = Value (*)(const Value &, const TextContext &);
    static constexpr auto asText = [](const Value &from, const TextContext &with) -> Value {
        return Value(toText(from, with));
    };
    static const QHash<QString, Function> functions {
        { u"text"_s, asText },
        { u"number"_s, [](const Value &from, const TextContext &) { return toNumber(from); } },
        { u"integer"_s,
          [](const Value &from, const TextContext &) {
              return wholeNumber(static_cast<double>(toInteger(from)));
          } },
        { u"real"_s, [](const Value &from, const TextContext &) { return Value(toReal(from)); } },
        { u"boolean"_s,
          [](const Value &from, const TextContext &) { return Value(toBoolean(from)); } },
        { u"list"_s,
          [](const Value &from, const TextContext &) {
              return from.isList() ? from : Value::list(toItems(from));
          } },
        { u"record"_s, [](const Value &from, const TextContext &) { return toRecord(from); } },
        { u"date"_s, [](const Value &from, const TextContext &) { return toDate(from); } },
        { u"constant"_s, [](const Value &from, const TextContext &) { return toConstant(from); } },
        { u"alias"_s, [](const Value &from, const TextContext &) { return toFile(from, true); } },
        { u"file"_s, [](const Value &from, const TextContext &) { return toFile(from, false); } },
    };
    const bool isAlready = className == u"anything" || className == classOf(value);
    const Function function = functions.value(className);
    if (isAlready || !function)
        return isAlready ? value : (failToMake(value, className), Value());
    try {
        return function(value, context);
    } catch (ScriptError &error) {
        // The whole value and the class that was asked for, not what the conversion stumbled over.
        const bool isSimple = className == u"integer" || className == u"real";
        if (error.number == ScriptError::cannotCoerce && isSimple)
            failToMake(value, className);
        throw;
    }
}

}
