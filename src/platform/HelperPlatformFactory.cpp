// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/BackendChoice.h"
#include "platform/HelperPlatform.h"
#ifdef TESSEL_WAYLAND
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
#endif
#ifdef TESSEL_X11
        { "x11", X11Connection::isOffered, X11HelperPlatform::connect },
#endif
    });
}

std::optional<QByteArray> qtPluginForWindows()
{
    if (const auto desktop = makeHelperPlatform())
        return (*desktop)->qtPlugin();
    if (qEnvironmentVariableIsSet("QT_QPA_PLATFORM")
        || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        return QByteArray();
    return {};
}

}
