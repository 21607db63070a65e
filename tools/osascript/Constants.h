// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "Value.h"

namespace osascript {

/// What a constant's words mean: `tab` a text, `minutes` a number, `Monday` itself.
[[nodiscard]] Value constantValue(QStringView words);

}
