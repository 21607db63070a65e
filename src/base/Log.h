// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

#include <functional>

namespace Tessel {

/// The one place where diagnostics leave the program.
namespace Log {

/// Writes one line to standard output as UTF-8, at once. Failures are ignored, also that nobody
/// reads the output any more: from the first line on, the process ignores SIGPIPE. What a reader
/// who has stopped leaves no room for is dropped.
void print(QStringView line);

/// Takes the lines instead of standard output. An empty sink restores that. Main thread only.
void setSink(std::function<void(QStringView line)> sink);

}

}
