// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "config/AppConfig.h"

namespace Tessel {

/// The actions that come with the program, and the names of older versions.
namespace DefaultActions {

/// The identifier of the standard action that counts; the bar shows the count in its place.
inline constexpr QStringView countId = u"count";

/// The nine actions of a first start; the last four have a new identifier each time.
[[nodiscard]] QList<ActionConfig> all();

/// The five standard actions, as they come back when a file lacks them.
[[nodiscard]] QList<ActionConfig> standard();

/// The icon-set name for a system symbol that older files hold; other names unchanged.
[[nodiscard]] QString renamedIcon(const QString &iconName);

}

}
