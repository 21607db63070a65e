// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

#include <optional>

namespace Tessel {

/// A whole number up to 9999 in digits or, up to 99, in words as dates and times have them: English
/// up to twelve ("a" is one), Chinese (二十五, 两), Korean hours (한 to 열두) and days (하루 to
/// 보름).
[[nodiscard]] std::optional<int> numberFromWords(QStringView text);

}
