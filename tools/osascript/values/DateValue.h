// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTime>
#include <QString>

#include <optional>

/// Dates as scripts write and read them: US English, whatever the locale.
namespace Tessel::Osascript {

/// The wall clock's time now, without milliseconds.
[[nodiscard]] QDateTime currentWallClock();

[[nodiscard]] QString dateString(QDate date); ///< Saturday, November 21, 2026
[[nodiscard]] QString shortDateString(QDate date); ///< 11/21/26
[[nodiscard]] QString timeString(QTime time); ///< 5:59:07 AM
[[nodiscard]] QString formatDate(const QDateTime &date); ///< both long forms, with " at " between

/// Reads an ISO 8601 date (2026-11-21, 2026-11-21T05:59:07, 2026-11-21 05:59), the long form with
/// or without weekday and time, 11/21/2026, 11/21/26 and a time alone, which is today's.
[[nodiscard]] std::optional<QDateTime> parseDate(const QString &text);

[[nodiscard]] QString monthName(int month); ///< January is 1
[[nodiscard]] QString weekdayName(int weekday); ///< Sunday is 1
/// 1 to 12, or 1 to 7; 0 when it is none.
[[nodiscard]] int monthNumber(QStringView name);
[[nodiscard]] int weekdayNumber(QStringView name);
[[nodiscard]] int weekdayOf(QDate date); ///< Sunday is 1

}
