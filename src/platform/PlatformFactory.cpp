// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/Platform.h"
#include "platform/x11/X11Platform.h"

namespace Tessel {

PlatformResult makePlatform()
{
    PlatformResult result;
    if (qEnvironmentVariableIsEmpty("DISPLAY")) {
        result.error = qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")
            ? QStringLiteral("There is no desktop session: DISPLAY is not set.")
            : QStringLiteral(
                "This Wayland session has no X server (XWayland), which Tessel needs.");
        return result;
    }
    if (!qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        result.notice
            = QStringLiteral("WARNING: Wayland session: keys pressed in, and text selected "
                             "in, applications that do not use XWayland are not seen.");
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "xcb");
    result.platform = X11Platform::connect(&result.error);
    return result;
}

}
