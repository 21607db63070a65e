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

namespace {

#ifdef TESSEL_WAYLAND
Result<std::unique_ptr<Platform>> connectToGnome()
{
    return GnomePlatform::connect([]() -> Result<std::unique_ptr<Platform>> {
#ifdef TESSEL_X11
        if (X11Connection::isOffered())
            return X11Platform::connectBeside();
#endif
        return noBackend({});
    });
}
#endif

}

Result<std::unique_ptr<Platform>> makePlatform()
{
    return connectToDesktop<Platform>({
#ifdef TESSEL_WAYLAND
        { "wayland", WaylandPlatform::isOffered, WaylandPlatform::connect },
        { "gnome", GnomePlatform::isOffered, connectToGnome },
#endif
#ifdef TESSEL_X11
        { "x11", X11Connection::isOffered, X11Platform::connect },
#endif
        { "none", NonePlatform::isOffered, NonePlatform::connect },
    });
}

}
