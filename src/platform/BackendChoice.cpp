// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/BackendChoice.h"

using namespace Qt::StringLiterals;

namespace Tessel {

Failure noBackend(const QString &wanted)
{
    if (!wanted.isEmpty())
        return { u"TESSEL_PLATFORM=%1 is not possible here."_s.arg(wanted) };
    if (!qEnvironmentVariableIsEmpty("DISPLAY"))
        return { u"This build of Tessel has no support for X11."_s };
    return { qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")
                 ? u"There is no desktop session: DISPLAY is not set."_s
                 : u"The compositor does not allow that, and there is no X server (XWayland)."_s };
}

}
