// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/values/DateValue.h"

#include <QLocale>
#include <QRegularExpression>
#include <QTimeZone>

using namespace Qt::StringLiterals;

namespace Tessel::Osascript {

namespace {

constexpr int monthCount = 12;
constexpr int weekdayCount = 7;
constexpr int afternoon = 12; // o'clock

/// From 1; 0 when none has the name.
int numberNamed(QStringView name, int count, QString (*nameOf)(int))
{
    for (int number = 1; number <= count; ++number) {
        if (name.compare(nameOf(number), Qt::CaseInsensitive) == 0)
            return number;
    }
    return 0;
}

int inFull(int year)
{
    constexpr int pivot = 50; // two digits mean 1950 to 2049
    return year >= 100 ? year : year < pivot ? 2000 + year : 1900 + year;
}

/// In full, or its first letters: "Nov", "sept".
int monthFrom(QStringView name)
{
    constexpr qsizetype minLetters = 3;
    for (int month = 1; month <= monthCount && name.size() >= minLetters; ++month) {
        if (monthName(month).startsWith(name, Qt::CaseInsensitive))
            return month;
    }
    return 0;
}

std::optional<QDate> parseDay(const QString &text)
{
    static const QRegularExpression iso(uR"(\A(\d{4})-(\d{1,2})-(\d{1,2})\z)"_s);
    static const QRegularExpression numeric(uR"(\A(\d{1,2})/(\d{1,2})/(\d{2}|\d{4})\z)"_s);
    static const QRegularExpression words(
        uR"(\A(?:[a-z]+,?\s+)??([a-z]+)\s+(\d{1,2})(?:st|nd|rd|th)?,?\s+(\d{4})\z)"_s,
        QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression dayFirst(
        uR"(\A(?:[a-z]+,?\s+)?(\d{1,2})(?:st|nd|rd|th)?\s+([a-z]+),?\s+(\d{4})\z)"_s,
        QRegularExpression::CaseInsensitiveOption);
    QDate date;
    if (const auto match = iso.match(text); match.hasMatch())
        date = QDate(match.captured(1).toInt(), match.captured(2).toInt(),
                     match.captured(3).toInt());
    else if (const auto other = numeric.match(text); other.hasMatch())
        date = QDate(inFull(other.captured(3).toInt()), other.captured(1).toInt(),
                     other.captured(2).toInt());
    else if (const auto named = words.match(text); named.hasMatch())
        date = QDate(named.captured(3).toInt(), monthFrom(named.captured(1)),
                     named.captured(2).toInt());
    else if (const auto ordered = dayFirst.match(text); ordered.hasMatch())
        date = QDate(ordered.captured(3).toInt(), monthFrom(ordered.captured(2)),
                     ordered.captured(1).toInt());
    return date.isValid() ? std::optional(date) : std::nullopt;
}

std::optional<QTime> parseTime(const QString &text)
{
    static const QRegularExpression form(uR"(\A(\d{1,2}):(\d{2})(?::(\d{2}))?\s*(am|pm)?\z)"_s,
                                         QRegularExpression::CaseInsensitiveOption);
    const auto match = form.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    int hour = match.captured(1).toInt();
    const QString half = match.captured(4).toLower();
    if (!half.isEmpty())
        hour = hour % afternoon + (half == u"pm" ? afternoon : 0);
    const QTime time(hour, match.captured(2).toInt(), match.captured(3).toInt());
    return time.isValid() ? std::optional(time) : std::nullopt;
}

QDateTime wallClock(QDate date, QTime time)
{
    return QDateTime(date, time, Qt::UTC);
}

}

QDateTime currentWallClock()
{
    const QDateTime now = QDateTime::currentDateTime();
    return wallClock(now.date(),
                     QTime(now.time().hour(), now.time().minute(), now.time().second()));
}

QString dateString(QDate date)
{
    return QLocale::c().toString(date, u"dddd, MMMM d, ") + QString::number(date.year());
}

QString shortDateString(QDate date)
{
    return QLocale::c().toString(date, u"M/d/yy");
}

QString timeString(QTime time)
{
    return QLocale::c().toString(time, u"h:mm:ss AP");
}

QString formatDate(const QDateTime &date)
{
    return dateString(date.date()) + u" at "_s + timeString(date.time());
}

std::optional<QDateTime> parseDate(const QString &text)
{
    static const QRegularExpression gap(uR"(\s+at\s+|(?<=\d)T(?=\d)|,?\s+(?=\d{1,2}:\d\d))"_s,
                                        QRegularExpression::CaseInsensitiveOption);
    const QString source = text.simplified();
    if (const auto time = parseTime(source))
        return wallClock(currentWallClock().date(), *time);
    if (const auto day = parseDay(source))
        return wallClock(*day, QTime(0, 0));
    const auto match = gap.match(source);
    if (!match.hasMatch())
        return std::nullopt;
    const auto day = parseDay(source.left(match.capturedStart()));
    const auto time = parseTime(source.mid(match.capturedEnd()));
    return day && time ? std::optional(wallClock(*day, *time)) : std::nullopt;
}

QString monthName(int month)
{
    return QLocale::c().monthName(month);
}

QString weekdayName(int weekday)
{
    return QLocale::c().dayName(weekday == 1 ? Qt::Sunday : weekday - 1);
}

int monthNumber(QStringView name)
{
    return numberNamed(name, monthCount, monthName);
}

int weekdayNumber(QStringView name)
{
    return numberNamed(name, weekdayCount, weekdayName);
}

int weekdayOf(QDate date)
{
    return date.dayOfWeek() % 7 + 1;
}

}
