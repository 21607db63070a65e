// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <compare>

namespace Tessel {

/// Starts with a digit; letters, digits, dots, hyphens and plus signs; at most 64 characters.
[[nodiscard]] bool isVersion(const QString &text);

/// The precedence of Semantic Versioning 2.0 (§ 11), more lenient in what it takes: any count of
/// numbers, missing ones are 0 (1.2 = 1.2.0); a pre-release needs no hyphen (1.2rc1); digits in it
/// count as a number (beta9 < beta10); case does not matter. Build metadata (+…) is ignored.
[[nodiscard]] std::weak_ordering compareVersions(QStringView left, QStringView right);

}
