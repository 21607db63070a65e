// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/values/ValueProperties.h"

#include "osascript/values/Coercion.h"
#include "osascript/values/DateValue.h"
#include "osascript/values/Printer.h"
#include "osascript/values/ScriptError.h"
#include "osascript/values/TextElements.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>

using namespace Qt::StringLiterals;

namespace Tessel::Osascript {

namespace {

Value integer(int number)
{
    return Value(qint64 { number });
}

Value codePoints(const QString &text)
{
    QList<Value> points;
    for (const uint point : text.toUcs4())
        points.append(Value(qint64 { point }));
    return points.size() == 1 ? points.constFirst() : Value::list(points);
}

/// Nothing when lists have no such property.
Value listProperty(const QList<Value> &items, const QString &name)
{
    if (name == u"reverse")
        return Value::list(QList<Value>(items.crbegin(), items.crend()));
    if (name == u"rest" && !items.isEmpty())
        return Value::list(items.mid(1));
    return {};
}

Value dateProperty(const QDateTime &date, const QString &name)
{
    using Getter = Value (*)(const QDateTime &);
    static const QHash<QString, Getter> getters {
        { u"year"_s, [](const QDateTime &d) { return integer(d.date().year()); } },
        { u"month"_s,
          [](const QDateTime &d) { return Value(Constant { monthName(d.date().month()) }); } },
        { u"day"_s, [](const QDateTime &d) { return integer(d.date().day()); } },
        { u"weekday"_s,
          [](const QDateTime &d) { return Value(Constant { weekdayName(weekdayOf(d.date())) }); } },
        { u"hours"_s, [](const QDateTime &d) { return integer(d.time().hour()); } },
        { u"minutes"_s, [](const QDateTime &d) { return integer(d.time().minute()); } },
        { u"seconds"_s, [](const QDateTime &d) { return integer(d.time().second()); } },
        { u"time"_s,
          [](const QDateTime &d) { return integer(d.time().msecsSinceStartOfDay() / 1000); } },
        { u"date string"_s, [](const QDateTime &d) { return Value(dateString(d.date())); } },
        { u"short date string"_s,
          [](const QDateTime &d) { return Value(shortDateString(d.date())); } },
        { u"time string"_s, [](const QDateTime &d) { return Value(timeString(d.time())); } },
    };
    const Getter getter = getters.value(name);
    return getter ? getter(date) : Value();
}

/// What is too much for one part carries over to the next: day 32 is in the next month. Nothing
/// when dates have no such property.
std::optional<QDateTime> changedDate(const QDateTime &date, const QString &name, qint64 number)
{
    constexpr int minute = 60;
    constexpr int hour = 60 * minute;
    const QDate day = date.date();
    const QTime time = date.time();
    const auto fromFirst
        = [&](QDate first) { return QDateTime(first.addDays(day.day() - 1), time, Qt::UTC); };
    if (name == u"year")
        return fromFirst(QDate(static_cast<int>(number), day.month(), 1));
    if (name == u"month")
        return fromFirst(QDate(day.year(), static_cast<int>(number), 1));
    if (name == u"day")
        return date.addDays(number - day.day());
    if (name == u"hours")
        return date.addSecs((number - time.hour()) * hour);
    if (name == u"minutes")
        return date.addSecs((number - time.minute()) * minute);
    if (name == u"seconds")
        return date.addSecs(number - time.second());
    if (name == u"time")
        return date.addSecs(number - time.msecsSinceStartOfDay() / 1000);
    return std::nullopt;
}

Value textProperty(const QString &text, const QString &name)
{
    if (name == u"id")
        return codePoints(text);
    if (name == u"quoted form")
        return Value(quotedForm(text));
    if (name == u"POSIX path")
        return Value(text);
    return {};
}

Value fileProperty(const File &file, const QString &name)
{
    if (name == u"POSIX path")
        return Value(file.path);
    const QFileInfo info(QDir::cleanPath(file.path));
    if (name == u"name")
        return Value(info.fileName());
    if (name == u"name extension")
        return Value(info.suffix());
    if (name == u"container")
        return Value(File { info.path(), true });
    if (name == u"URL")
        return Value(u"file://"_s + QString::fromLatin1(file.path.toUtf8().toPercentEncoding("/")));
    return {};
}

/// Nothing when the value has no such property of its own.
Value ownProperty(const Value &value, const QString &name)
{
    if (const auto *text = value.as<QString>())
        return textProperty(*text, name);
    if (const auto *list = value.as<ListPointer>())
        return listProperty((*list)->items, name);
    if (const auto *date = value.as<DatePointer>())
        return dateProperty(**date, name);
    if (const auto *file = value.as<File>())
        return fileProperty(*file, name);
    return {};
}

bool hasLength(const Value &value)
{
    return value.isText() || value.isList() || value.is<RecordPointer>();
}

}

Value valueProperty(const Value &value, const QString &name, const TextContext &context)
{
    static const QSet<QString> classes { u"text"_s,    u"integer"_s, u"real"_s,
                                         u"boolean"_s, u"list"_s,    u"record"_s,
                                         u"date"_s,    u"file"_s,    u"alias"_s };
    if (const auto *record = value.as<RecordPointer>()) {
        if (const Value *field = (*record)->find(name))
            return *field;
    }
    Value own = ownProperty(value, name);
    if (!own.isNothing())
        return own;
    if (name == u"class")
        return Value(ClassName { classOf(value) });
    if (name == u"contents")
        return value;
    if ((name == u"length" || name == u"number") && hasLength(value))
        return Value(valueLength(value));
    if (classes.contains(name))
        return coerced(value, name, context);
    failToGet(name + u" of "_s + printed(value));
}

void setValueProperty(const Value &container, const QString &name, const Value &value)
{
    if (const auto *record = container.as<RecordPointer>()) {
        if (Value *field = (*record)->find(name)) {
            if (contains(value, container))
                fail(ScriptError::stackOverflow, u"Stack overflow."_s);
            *field = value;
            return;
        }
    }
    if (const auto *date = container.as<DatePointer>()) {
        const auto changed = changedDate(**date, name, toInteger(value));
        if (changed && changed->isValid()) {
            **date = *changed;
            return;
        }
    }
    failToSet(name + u" of "_s + printed(container), printed(value));
}

qint64 valueLength(const Value &value)
{
    if (const auto *text = value.as<QString>())
        return characterCount(*text, CrLf::two);
    if (!hasLength(value))
        failToGet(u"length of "_s + printed(value));
    return toItems(value).size();
}

QString textOfCodePoints(const Value &value)
{
    QString text;
    for (const Value &item : toItems(value)) {
        const qint64 point = toInteger(item);
        if (point < 0 || point > qint64 { QChar::LastValidCodePoint }
            || QChar::isSurrogate(static_cast<char32_t>(point)))
            failToGet(u"character id "_s + printed(item));
        text += QChar::fromUcs4(static_cast<char32_t>(point));
    }
    return text;
}

QString quotedForm(const QString &text)
{
    return u'\'' + QString(text).replace(u'\'', u"'\\''"_s) + u'\'';
}

}
