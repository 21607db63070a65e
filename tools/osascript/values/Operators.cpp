// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/values/Operators.h"

#include "osascript/values/Coercion.h"
#include "osascript/values/Comparison.h"
#include "osascript/values/NumberFormat.h"
#include "osascript/values/Printer.h"
#include "osascript/values/ScriptError.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace Tessel::Osascript {

namespace {

/// A real; what is no number any more raises an error.
Value realResult(double number)
{
    if (!std::isfinite(number))
        fail(ScriptError::numberTooLarge, u"The result of a numeric operation was too large."_s);
    return Value(number);
}

double divisor(const Value &left, const Value &right)
{
    const double number = toReal(right);
    if (number == 0)
        fail(ScriptError::divideByZero, u"Can’t divide "_s + printed(left) + u" by zero."_s);
    return number;
}

Value calculated(Operation operation, const Value &leftValue, const Value &rightValue)
{
    const Value left = toNumber(leftValue);
    const Value right = toNumber(rightValue);
    const double a = toReal(left);
    const double b = toReal(right);
    const bool isWhole = left.is<qint64>() && right.is<qint64>();
    const auto result
        = [isWhole](double number) { return isWhole ? wholeNumber(number) : realResult(number); };
    switch (operation) {
    case Operation::add:
        return result(a + b);
    case Operation::subtract:
        return result(a - b);
    case Operation::multiply:
        return result(a * b);
    case Operation::divide:
        return realResult(a / divisor(left, right));
    case Operation::integerDivide:
        return wholeNumber(std::trunc(a / divisor(left, right)));
    case Operation::modulo:
        return result(std::fmod(a, divisor(left, right)));
    default:
        return realResult(std::pow(a, b));
    }
}

/// Dates are moved by seconds, and the difference of two is in seconds.
Value calculatedWithDate(Operation operation, const QDateTime &left, const Value &right)
{
    const auto *other = right.as<DatePointer>();
    if (other && operation == Operation::subtract)
        return wholeNumber(static_cast<double>((*other)->secsTo(left)));
    if (operation != Operation::add && operation != Operation::subtract)
        failToCoerce(printed(Value::date(left)), u"number"_s);
    const qint64 seconds = toInteger(right);
    const QDateTime moved = left.addSecs(operation == Operation::add ? seconds : -seconds);
    if (!moved.isValid())
        fail(ScriptError::numberTooLarge, u"The result of a numeric operation was too large."_s);
    return Value::date(moved);
}

Value concatenatedRecords(const RecordPointer &left, const RecordPointer &right)
{
    QList<Field> fields = left->fields;
    for (const Field &field : right->fields) {
        if (!left->find(field.name))
            fields.append(field);
    }
    return Value::record(fields);
}

/// The left operand decides: a text makes a text, a record a record, all else a list.
Value concatenated(const Value &left, const Value &right, const TextContext &context)
{
    if (left.isText()) {
        const QString end = toText(right, context);
        checkTextSize(left.get<QString>().size() + end.size());
        return Value(left.get<QString>() + end);
    }
    const auto *record = left.as<RecordPointer>();
    const auto *other = right.as<RecordPointer>();
    if (record && other)
        return concatenatedRecords(*record, *other);
    const auto itemsOf
        = [](const Value &value) { return value.isList() ? value.items() : QList { value }; };
    return Value::list(itemsOf(left) + itemsOf(right));
}

bool compared(Operation operation, const Value &left, const Value &right,
              const TextContext &context)
{
    using enum Operation;
    switch (operation) {
    case less:
        return std::is_lt(ordered(left, right, context));
    case lessOrEqual:
        return std::is_lteq(ordered(left, right, context));
    case greater:
        return std::is_gt(ordered(left, right, context));
    case greaterOrEqual:
        return std::is_gteq(ordered(left, right, context));
    case equal:
        return areEqual(left, right, context);
    case notEqual:
        return !areEqual(left, right, context);
    case contains:
        return hasPart(left, right, Part::anywhere, context);
    case containsNot:
        return !hasPart(left, right, Part::anywhere, context);
    case isIn:
        return hasPart(right, left, Part::anywhere, context);
    case isNotIn:
        return !hasPart(right, left, Part::anywhere, context);
    case startsWith:
        return hasPart(left, right, Part::start, context);
    default:
        return hasPart(left, right, Part::end, context);
    }
}

}

Value applied(Operation operation, const Value &left, const Value &right,
              const TextContext &context)
{
    if (operation == Operation::concatenate)
        return concatenated(left, right, context);
    if (operation > Operation::concatenate)
        return Value(compared(operation, left, right, context));
    if (const auto *date = left.as<DatePointer>())
        return calculatedWithDate(operation, **date, right);
    return calculated(operation, left, right);
}

Value negated(const Value &number)
{
    return calculated(Operation::subtract, Value(qint64 {}), number);
}

}
