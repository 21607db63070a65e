// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <ctime>

namespace Tessel {

/// Milliseconds that this process has computed: other programs on a busy machine do not count.
inline qint64 cpuTime()
{
    return qint64(std::clock()) * 1000 / CLOCKS_PER_SEC;
}

}
