// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Workspace.h"

namespace Tessel {

class DesktopEntries;

/// The names that a window goes by; each may be empty.
struct WindowNames
{
    QString applicationId;
    QString windowClass;
    QString instance;
};

/// The application that such a window belongs to, without the window's handle.
[[nodiscard]] FrontApplication applicationNamed(const WindowNames &names, DesktopEntries &entries);

}
