// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Result.h"

class QIODevice;

namespace Tessel::Osascript {

/// The text of the script that the open device has, in UTF-8, or UTF-16 with a byte order mark.
[[nodiscard]] Result<QString> readScriptSource(QIODevice &device);

}
