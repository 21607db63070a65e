// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

namespace Tessel {

class KWinBridge;
class KWinFakeKeys;
class WaylandConnection;
class WaylandKeys;
class WaylandTrigger;

/// What a way to the trigger may be made of.
struct WaylandTriggerParts
{
    WaylandConnection &connection;
    WaylandKeys &keys;
    KWinBridge *kwin = nullptr; ///< where KWin runs
    KWinFakeKeys *kwinKeys = nullptr; ///< where it grants them
};

/// The best way that the desktop has. Needs the application object; the parts must outlive it.
[[nodiscard]] std::unique_ptr<WaylandTrigger> makeWaylandTrigger(const WaylandTriggerParts &parts);

}
