// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/wayland/WaylandKeymap.h"

namespace Tessel {

/// The user's layouts, a group each, and the locale's, as the compositor tells them to programs.
/// Which one is in use only the program in front knows. Nothing without a keyboard.
[[nodiscard]] std::optional<WaylandKeymap> compositorKeymap();

}
