// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

class QObject;

namespace Tessel {

/// Calls it, while the object lives, when a screen comes or goes or gets another size, place or
/// scale: what was placed for the screens may be off them now. Several times for one change.
void onScreenChange(QObject *context, const std::function<void()> &changed);

}
