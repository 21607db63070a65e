// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace Tessel {

/// A log of the settings window's life that outlasts the program's output.
namespace FileLogger {

/// Appends the message with the time (ISO 8601, UTC) to /tmp/tessel_debug.log, and prints it
/// without. Failures are ignored.
void log(const QString &message);

/// The same for another file; used by tests.
void log(const QString &message, const QString &path);

}

}
