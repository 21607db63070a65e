// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/BackendChoice.h"
#include "platform/Platform.h"
#include "platform/none/NonePlatform.h"
#ifdef TESSEL_WAYLAND
#include "platform/gnome/GnomePlatform.h"
#include "platform/wayland/WaylandPlatform.h"
#endif
#ifdef TESSEL_X11
#include "platform/x11/X11Connection.h"
#include "platform/x11/X11Platform.h"
#endif

namespace Tessel {

Result<std::unique_ptr<Platform>> makePlatform()
{
    return connectToDesktop<Platform>({
#ifdef TESSEL_WAYLAND
        { "wayland", WaylandPlatform::isOffered, WaylandPlatform::connect },
        { "gnome", GnomePlatform::isOffered, GnomePlatform::connect },
#endif
#ifdef TESSEL_X11
        { "x11", X11Connection::isOffered, X11Platform::connect },
#endif
        { "none", NonePlatform::isOffered, NonePlatform::connect },
    });
}

}
