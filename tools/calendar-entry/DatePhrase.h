// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTime>
#include <QString>

#include <optional>

namespace Tessel {

/// When something is to be.
struct DatePhrase
{
    QDate date;
    std::optional<QTime> time = std::nullopt;

    friend bool operator==(const DatePhrase &, const DatePhrase &) = default;
};

/// The first date, and the first time, in the text's first 4000 characters, in Korean, English or
/// Chinese phrasing, whatever the locale. A time alone is today's, or tomorrow's once it is past.
[[nodiscard]] std::optional<DatePhrase> findDatePhrase(const QString &text, const QDateTime &now);

}
