// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/DesktopEntry.h"

#include <QStringList>

namespace Tessel {

/// The program and arguments that start an application with these files or URLs (Desktop Entry
/// Specification 1.5, section "The Exec key"). Of several targets, %f and %u take the first; a
/// command without any such field gets them as its last arguments. Empty when the entry has no
/// command or its quoting is wrong.
[[nodiscard]] QStringList commandLine(const DesktopEntry &entry, const QStringList &targets = {});

}
