// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "osascript/terms/Terms.h"
#include "osascript/values/TextContext.h"
#include "osascript/values/Value.h"

namespace Tessel::Osascript {

/// The value of an operator with two operands, except for `and` and `or`, which may leave the right
/// one alone, and `as`, whose right one is no value.
[[nodiscard]] Value applied(Operation operation, const Value &left, const Value &right,
                            const TextContext &context);

[[nodiscard]] Value negated(const Value &number);

}
