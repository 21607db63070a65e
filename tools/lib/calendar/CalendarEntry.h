// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Result.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <optional>

namespace Tessel {

/// An event or a to-do. Times are local and stay so wherever the calendar is read.
struct CalendarEntry
{
    enum class Kind { event, toDo };

    Kind kind = Kind::event;
    QString summary = {};
    QString description = {};
    QString location = {};
    std::optional<QDateTime> start = std::nullopt;
    /// When an event ends, when a to-do is due. An event without an end, or with one that is not
    /// after its start, lasts an hour, or a day.
    std::optional<QDateTime> end = std::nullopt;
    int priority = 0; ///< of a to-do, from 1, the highest, to 9; 0: none
    /// Only the days count. The day of the end belongs to it unless the end is at midnight.
    bool isAllDay = false;
};

/// The entry as an iCalendar object (RFC 5545): UTF-8, lines of at most 75 octets that end in CRLF.
/// Entries of one identifier are the same entry. An event without a start starts now.
[[nodiscard]] QByteArray toICalendar(const CalendarEntry &entry, const QString &identifier,
                                     const QDateTime &now);

/// Writes the entry to a new file that only this user can read, in "tessel" below $XDG_RUNTIME_DIR
/// or else a private folder among the temporary files, and returns its path. Removes files of this
/// kind that are older than a day.
[[nodiscard]] Result<QString> writeCalendarFile(const CalendarEntry &entry);

}
