// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "osascript/values/TextContext.h"
#include "osascript/values/Value.h"

namespace Tessel::Osascript {

/// `length of x`, `year of d`, a record's field … Raises -1728 when the value has none of this
/// name.
[[nodiscard]] Value valueProperty(const Value &value, const QString &name,
                                  const TextContext &context);

/// Of a record or a date. Raises -10006.
void setValueProperty(const Value &container, const QString &name, const Value &value);

/// How many items, fields or characters.
[[nodiscard]] qint64 valueLength(const Value &value);

/// The text of a code point, or of a list of them.
[[nodiscard]] QString textOfCodePoints(const Value &value);

/// Quoted for /bin/sh.
[[nodiscard]] QString quotedForm(const QString &text);

}
