// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace Tessel {

/// What Qt 6.4 leaves out of the XDG Base Directory Specification 0.8.
namespace BaseFolders {

/// Takes relative paths out of the environment's XDG_* variables, as they are not to count. To be
/// called first: neither Qt nor our children look whether a path is absolute.
void dropRelative();

/// "tessel" in $XDG_STATE_HOME; need not exist.
[[nodiscard]] QString state();

}

}
