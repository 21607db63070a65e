// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/applications/CalendarApplication.h"

#include "lib/calendar/HandOver.h"
#include "osascript/values/Coercion.h"
#include "osascript/values/Printer.h"
#include "osascript/values/ScriptError.h"

using namespace Qt::StringLiterals;

namespace Tessel::Osascript {

namespace {

/// Raises -10000 for a property that entries do not have.
void apply(const Field &field, CalendarEntry &entry)
{
    const auto text = [&] { return toText(field.value, {}); };
    const auto time = [&] {
        const Value date = coerced(field.value, u"date"_s, {});
        const QDateTime &wallClock = *date.get<DatePointer>();
        return QDateTime(wallClock.date(), wallClock.time());
    };
    const QString &name = field.name;
    if (name == u"summary" || name == u"name")
        entry.summary = text();
    else if (name == u"description" || name == u"body")
        entry.description = text();
    else if (name == u"location")
        entry.location = text();
    else if (name == u"start date")
        entry.start = time();
    else if (name == u"end date" || name == u"due date")
        entry.end = time();
    else if (name == u"remind me date")
        entry.end = entry.end.value_or(time());
    else if (name == u"allday event")
        entry.isAllDay = toBoolean(field.value);
    else if (name == u"priority")
        entry.priority = static_cast<int>(std::clamp<qint64>(toInteger(field.value), 0, 9));
    else if (name == u"flagged")
        static_cast<void>(toBoolean(field.value)); // iCalendar has no flags
    else if (name == u"allday due date") {
        entry.end = time();
        entry.isAllDay = true;
    } else
        failWith(-10000, u"Can’t set "_s + name + u'.');
}

/// Raises -10000 for an event that ends before it starts.
void checkTimes(const CalendarEntry &entry)
{
    if (entry.kind != CalendarEntry::Kind::event || !entry.start || !entry.end)
        return;
    const bool isBackwards
        = entry.isAllDay ? entry.end->date() < entry.start->date() : *entry.end < *entry.start;
    if (isBackwards)
        failWith(-10000, u"The start date must be before the end date."_s);
}

}

CalendarApplication::CalendarApplication(QString name, Host &host)
    : Application(std::move(name), host)
{
}

bool CalendarApplication::acceptsName(const QString &className) const
{
    return className == u"calendar" || className == u"list";
}

/// There is one place to put things, whatever it is called.
QList<Object> CalendarApplication::elements(const Object &container, const QString &className)
{
    if (acceptsName(className))
        return { element(className, name()) };
    return Application::elements(container, className);
}

Value CalendarApplication::property(const Object &object, const QString &name)
{
    return name == u"default list" ? Value(element(u"list"_s, this->name()))
                                   : Application::property(object, name);
}

Value CalendarApplication::perform(const Invocation &invocation)
{
    if (!invocation.is(u"make"))
        return Application::perform(invocation);
    const Value newClass = invocation.argument(u"new");
    const auto *className = newClass.as<ClassName>();
    const bool isEvent = className && className->name == u"event";
    if (!isEvent && !(className && className->name == u"reminder"))
        failNotUnderstanding(invocation);
    CalendarEntry entry;
    entry.kind = isEvent ? CalendarEntry::Kind::event : CalendarEntry::Kind::toDo;
    const Value properties = invocation.argument(u"with properties");
    if (const auto *record = properties.as<RecordPointer>()) {
        for (const Field &field : (*record)->fields)
            apply(field, entry);
    }
    checkTimes(entry);
    if (const auto given = handOver(entry, host().desktop, host().dialogs); !given)
        fail(ScriptError::notAllowed, given.error().reason + u'.');
    return Value(element(className->name, entry.summary));
}

}
