// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace Tessel {

/// A random UUID (RFC 9562), upper case, with hyphens and without braces.
[[nodiscard]] QString newIdentifier();

}
