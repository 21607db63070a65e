// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Result.h"

#include <memory>

namespace Tessel {

class ClientWindows;
class TextClipboard;

/// What programs without windows ask of the desktop: the counterpart of Platform, without Qt Gui
/// and D-Bus. One thread, which waits in each call.
class HelperPlatform
{
public:
    virtual ~HelperPlatform() = default;

    [[nodiscard]] virtual TextClipboard &clipboard() = 0;
    [[nodiscard]] virtual ClientWindows &clientWindows() = 0;
    virtual void ringBell() = 0;
};

/// Connects to the desktop; the backend is chosen as makePlatform() does. Needs no application
/// object.
[[nodiscard]] Result<std::unique_ptr<HelperPlatform>> makeHelperPlatform();

/// Whether Qt finds a display to show windows on; without one it would end the process with a core
/// dump.
[[nodiscard]] bool hasDisplay();

}
