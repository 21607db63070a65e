// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/wayland/WaylandKeymap.h"

namespace Tessel {

/// The user's layouts, a group each, as the compositor tells them to programs; which one is in use
/// only the program in front knows. Nothing without a keyboard.
[[nodiscard]] std::optional<WaylandKeymap> compositorKeymap();

}
