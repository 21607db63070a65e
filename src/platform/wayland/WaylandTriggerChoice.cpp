// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/wayland/WaylandTriggerChoice.h"

#include "platform/wayland/KWinTrigger.h"
#include "platform/wayland/PortalShortcuts.h"
#include "platform/wayland/SwayTrigger.h"

namespace Tessel {

std::unique_ptr<WaylandTrigger> makeWaylandTrigger(const WaylandTriggerParts &parts)
{
    if (parts.kwin)
        return std::make_unique<KWinTrigger>(*parts.kwin, parts.kwinKeys);
    if (auto sway = SwayIpc::open(parts.connection))
        return std::make_unique<SwayTrigger>(std::move(sway), parts.keys);
    return std::make_unique<PortalShortcuts>();
}

}
