// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "osascript/values/Value.h"

namespace Tessel::Osascript {

/// What a constant's words mean: `tab` a text, `minutes` a number, `Monday` itself.
[[nodiscard]] Value constantValue(QStringView words);

}
