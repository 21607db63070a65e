// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace Tessel {

/// Hands a URL or an absolute path to the user's default handler (xdg-utils); returns at once, with
/// the reason when xdg-open cannot be started. What comes of it is not known.
[[nodiscard]] std::optional<QString> xdgOpen(const QString &target);

}
