// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "osascript/language/Token.h"

#include <QList>

namespace Tessel::Osascript {

/// The tokens of a script, the last of which is `end`. Comments and continued line ends are left
/// out. Raises a syntax error.
[[nodiscard]] QList<Token> tokenize(QStringView script);

}
