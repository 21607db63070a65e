// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDeadlineTimer>
#include <QThread>

namespace Tessel {

/// Looks again and again whether something has come about for which no event can be awaited: the
/// calls of a script block. False when the time is up.
template <typename Condition>
bool waitUntil(const Condition &condition, std::chrono::milliseconds limit)
{
    constexpr unsigned long interval = 10;
    const QDeadlineTimer deadline(limit);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QThread::msleep(interval);
    }
    return true;
}

}
