// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace Tessel {

/// What a start does that finds the lock taken: the program that runs is to show its preferences.
/// When the lock names another program, to which the system gave the number again, a notification
/// says so. Waits for three seconds at most. Needs an application object.
void handOverTo(qint32 lockOwner, const QString &lockPath);

/// Sends the program that holds the lock a signal (SignalEvents); false when none runs.
[[nodiscard]] bool signalRunningProgram(const QString &lockPath, int signal);

}
