// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "osascript/values/Value.h"

namespace Tessel::Osascript {

enum class PrintStyle {
    source, ///< as it would be written in a script
    human, ///< texts without quotes, lists without braces
};

/// The value as text; nothing prints as nothing.
[[nodiscard]] QString printed(const Value &value, PrintStyle style = PrintStyle::source);

/// A text as it is written in a script.
[[nodiscard]] QString quoted(const QString &text);

}
