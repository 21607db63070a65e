// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "osascript/values/Value.h"

#include <optional>

namespace Tessel::Osascript {

/// 1.0, 0.333333333333, 1.0E+4: at most twelve digits after the point, and a power of ten from
/// 10,000 up and from 0.0001 down, whatever the locale.
[[nodiscard]] QString formatReal(double number);

/// An integer or a real as it is written in a script, with a sign and white space around it. An
/// integer that does not fit (30 bits) is a real.
[[nodiscard]] std::optional<Value> parseNumber(const QString &text);

/// The whole number as an integer when it fits, else as a real.
[[nodiscard]] Value wholeNumber(double number);

}
