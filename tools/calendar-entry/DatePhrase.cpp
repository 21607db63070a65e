// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "calendar-entry/DatePhrase.h"

#include "calendar-entry/DayPhrase.h"
#include "calendar-entry/TimePhrase.h"

namespace Tessel {

namespace {

constexpr qsizetype maxCharacters = 4000;
constexpr int minutesPerDay = 24 * 60;

}

std::optional<DatePhrase> findDatePhrase(const QString &wholeText, const QDateTime &now)
{
    const QString text = wholeText.left(maxCharacters).normalized(QString::NormalizationForm_C);
    const auto day = findDay(text, now.date());
    const auto time = findTime(text, day.has_value(), day && day->isEvening);
    if (!time)
        return day ? std::optional(DatePhrase { day->date }) : std::nullopt;
    const QTime clock(*time / 60 % 24, *time % 60);
    QDate date = day ? day->date : now.date();
    if (*time >= minutesPerDay)
        date = date.addDays(1);
    else if (!day && clock <= now.time())
        date = date.addDays(1);
    return DatePhrase { date, clock };
}

}
