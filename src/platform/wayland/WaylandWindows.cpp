// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/wayland/WaylandWindows.h"

#include "platform/freedesktop/WindowNames.h"

namespace Tessel {

WindowNames namesOf(const WaylandWindow &window)
{
    const QString &id = window.applicationId;
    return { id, id, id.section(u'.', -1) };
}

}
