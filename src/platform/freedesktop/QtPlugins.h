// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

namespace Tessel {

/// Whether Qt can show windows on Wayland: distributions have that as a package of its own.
[[nodiscard]] bool hasQtWaylandPlugin();

}
