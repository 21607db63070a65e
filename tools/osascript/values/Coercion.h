// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "osascript/values/TextContext.h"
#include "osascript/values/Value.h"

namespace Tessel::Osascript {

/// The name of the value's class.
[[nodiscard]] QString classOf(const Value &value);

/// The value as one of the class, as `as` makes it. Raises -1700.
[[nodiscard]] Value coerced(const Value &value, const QString &className,
                            const TextContext &context);

[[nodiscard]] QString toText(const Value &value, const TextContext &context);
/// An integer or a real.
[[nodiscard]] Value toNumber(const Value &value);
[[nodiscard]] double toReal(const Value &value);
/// Rounded to the nearest; halves to the even.
[[nodiscard]] qint64 toInteger(const Value &value);
[[nodiscard]] bool toBoolean(const Value &value);
/// The items of a list, the values of a record, or the value alone.
[[nodiscard]] QList<Value> toItems(const Value &value);

}
