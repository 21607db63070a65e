// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

#include <optional>

namespace Tessel {

/// Looks through the arguments of pbcopy and pbpaste: -help, "-pboard general", and "-Prefer" with
/// a format, which is accepted because there is only text. An exit status when the program has
/// nothing more to do; then its use is printed.
[[nodiscard]] std::optional<int> exitStatusAfterOptions(const QStringList &arguments,
                                                        const char *usage);

}
