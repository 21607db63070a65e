// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/BackendChoice.h"
#include "platform/HelperPlatform.h"
#ifdef TESSEL_WAYLAND
#include "platform/gnome/GnomeModule.h"
#include "platform/gnome/GnomeSession.h"
#include "platform/wayland/WaylandHelperPlatform.h"
#endif
#ifdef TESSEL_X11
#include "platform/x11/X11Connection.h"
#include "platform/x11/X11HelperPlatform.h"
#endif

namespace Tessel {

Result<std::unique_ptr<HelperPlatform>> makeHelperPlatform()
{
    return connectToDesktop<HelperPlatform>({
#ifdef TESSEL_WAYLAND
        { "wayland", WaylandHelperPlatform::isOffered, WaylandHelperPlatform::connect },
        { "gnome", GnomeModule::isOffered, GnomeModule::makeHelperPlatform },
#endif
#ifdef TESSEL_X11
        { "x11", X11Connection::isOffered, X11HelperPlatform::connect },
#endif
    });
}

std::optional<QByteArray> qtPluginForWindows()
{
#ifdef TESSEL_WAYLAND
    // Whether the shell serves helpers or not, and without D-Bus, which needs an application
    // object.
    const QByteArray wanted = qgetenv("TESSEL_PLATFORM");
    if ((wanted.isEmpty() || wanted == "gnome") && GnomeSession::isOffered())
        return "wayland";
#endif
    if (const auto desktop = makeHelperPlatform())
        return (*desktop)->qtPlugin();
    if (qEnvironmentVariableIsSet("QT_QPA_PLATFORM")
        || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        return QByteArray();
    return {};
}

}
