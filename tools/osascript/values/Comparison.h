// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "osascript/values/TextContext.h"
#include "osascript/values/Value.h"

#include <compare>

namespace Tessel::Osascript {

/// Under the rules of the context; never an error: values of different classes are not equal, but
/// an integer can equal a real.
[[nodiscard]] bool areEqual(const Value &left, const Value &right, const TextContext &context);

/// Numbers, dates and texts; the right one is made into the left one's class. Raises -1700.
[[nodiscard]] std::weak_ordering ordered(const Value &left, const Value &right,
                                         const TextContext &context);

enum class Part { anywhere, start, end };

/// Whether a text, list or record has the other in it, at the start, or at the end.
[[nodiscard]] bool hasPart(const Value &whole, const Value &part, Part where,
                           const TextContext &context);

/// Where the part first is in the text, in characters from 1; 0 when it is not in it.
[[nodiscard]] qsizetype offsetOf(const QString &part, const QString &text,
                                 const TextContext &context);

}
