// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/values/Value.h"

#include "osascript/values/ScriptError.h"
#include "osascript/values/StackLimit.h"

#include <vector>

using namespace Qt::StringLiterals;

namespace Tessel::Osascript {

namespace {

constexpr qsizetype maxTextSize = 32 << 20; // UTF-16 code units
constexpr qsizetype maxListSize = 4 << 20;

/// Moves out what would be destroyed with the items.
void takeLastOwned(QList<Value> &items, std::vector<Value> &pending)
{
    for (Value &item : items) {
        const ListPointer *list = item.as<ListPointer>();
        const RecordPointer *record = item.as<RecordPointer>();
        if ((list && list->use_count() == 1) || (record && record->use_count() == 1))
            pending.push_back(std::exchange(item, Value()));
    }
}

QList<Value> valuesOf(const QList<Field> &fields)
{
    QList<Value> values;
    for (const Field &field : fields)
        values.append(field.value);
    return values;
}

void takeLastOwned(QList<Field> &fields, std::vector<Value> &pending)
{
    for (Field &field : fields) {
        QList<Value> value { std::exchange(field.value, Value()) };
        takeLastOwned(value, pending);
    }
}

void destroy(std::vector<Value> pending)
{
    while (!pending.empty()) {
        const Value value = std::move(pending.back());
        pending.pop_back();
        if (const ListPointer *list = value.as<ListPointer>())
            takeLastOwned((*list)->items, pending);
        else if (const RecordPointer *record = value.as<RecordPointer>())
            takeLastOwned((*record)->fields, pending);
    }
}

/// Copies as long as there is room: what is shared many times multiplies.
class Copier final
{
public:
    Value copy(const Value &value)
    {
        checkStack();
        checkListSize(++m_count);
        if (const ListPointer *list = value.as<ListPointer>())
            return Value::list(copies((*list)->items));
        if (const DatePointer *date = value.as<DatePointer>())
            return Value::date(**date);
        if (const RecordPointer *record = value.as<RecordPointer>()) {
            QList<Field> fields = (*record)->fields;
            for (Field &field : fields)
                field.value = copy(field.value);
            return Value::record(fields);
        }
        return value;
    }

private:
    QList<Value> copies(const QList<Value> &items)
    {
        QList<Value> result;
        result.reserve(items.size());
        for (const Value &item : items)
            result.append(copy(item));
        return result;
    }

    qsizetype m_count = 0;
};

}

List::List(QList<Value> values)
    : items(std::move(values))
{
}

List::~List()
{
    std::vector<Value> pending;
    takeLastOwned(items, pending);
    destroy(std::move(pending));
}

Record::Record(QList<Field> values)
    : fields(std::move(values))
{
}

Record::~Record()
{
    std::vector<Value> pending;
    takeLastOwned(fields, pending);
    destroy(std::move(pending));
}

Value *Record::find(QStringView name)
{
    for (Field &field : fields) {
        if (name.compare(field.name, Qt::CaseInsensitive) == 0)
            return &field.value;
    }
    return nullptr;
}

Value Value::list(QList<Value> items)
{
    checkListSize(items.size());
    return Value(std::make_shared<List>(std::move(items)));
}

Value Value::texts(const QStringList &items)
{
    QList<Value> values;
    values.reserve(items.size());
    for (const QString &item : items)
        values.append(Value(item));
    return list(std::move(values));
}

Value Value::record(QList<Field> fields)
{
    return Value(std::make_shared<Record>(std::move(fields)));
}

Value Value::date(const QDateTime &wallClock)
{
    return Value(std::make_shared<QDateTime>(wallClock));
}

Value deepCopy(const Value &value)
{
    return Copier().copy(value);
}

bool contains(const Value &value, const Value &container)
{
    checkStack();
    const ListPointer *list = value.as<ListPointer>();
    const RecordPointer *record = value.as<RecordPointer>();
    if ((list && container.as<ListPointer>() && *list == container.get<ListPointer>())
        || (record && container.as<RecordPointer>() && *record == container.get<RecordPointer>()))
        return true;
    const QList<Value> inner = list ? (*list)->items
        : record                    ? valuesOf((*record)->fields)
                                    : QList<Value>();
    return std::any_of(inner.cbegin(), inner.cend(),
                       [&](const Value &item) { return contains(item, container); });
}

void checkTextSize(qsizetype size)
{
    if (size > maxTextSize)
        fail(ScriptError::outOfMemory, u"Out of memory: the text is too long."_s);
}

void checkListSize(qsizetype size)
{
    if (size > maxListSize)
        fail(ScriptError::outOfMemory, u"Out of memory: the list is too long."_s);
}

}
