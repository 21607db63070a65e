// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace Tessel {

/// The first time of day that the text names in Korean, English or Chinese, in minutes since the
/// day began; the midnight that ends the day is 1440. What is a time only beside a day, like
/// "3:30", counts when the text `hasDay`. Hours from one to six are in the afternoon unless the
/// text says otherwise; `isEvening` says so for those up to eleven.
[[nodiscard]] std::optional<int> findTime(const QString &text, bool hasDay, bool isEvening);

}
