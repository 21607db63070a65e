// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDate>
#include <QString>

#include <optional>

namespace Tessel {

struct DayPhrase
{
    QDate date;
    bool isEvening = false; ///< "tonight"
};

/// The first day that the text names in Korean, English or Chinese. Without a year it is today or
/// later; a bare weekday is the next one after today; weeks begin on Monday.
[[nodiscard]] std::optional<DayPhrase> findDay(const QString &text, QDate today);

}
