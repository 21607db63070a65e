// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

namespace Tessel {

enum class Kinship { none, same, relative };

/// How two processes belong together: the same one, or one was started by the other, directly or
/// through others between them.
[[nodiscard]] Kinship kinship(qint64 process, qint64 other);

}
