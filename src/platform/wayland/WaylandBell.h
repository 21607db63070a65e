// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

namespace Tessel {

class WaylandConnection;

/// Nothing is heard where the compositor has no bell (xdg-system-bell).
void ringWaylandBell(WaylandConnection &connection);

}
