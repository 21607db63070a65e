// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "lib/Host.h"
#include "lib/calendar/CalendarEntry.h"

namespace Tessel {

/// Gives the entry to the calendar application and tells the user by a notification what has become
/// of it. Fails when there is no such application, which is never one for any text.
[[nodiscard]] Result<void> handOver(const CalendarEntry &entry, Osascript::Desktop &desktop,
                                    Osascript::Dialogs &dialogs);

}
