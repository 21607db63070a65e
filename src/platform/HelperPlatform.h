// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Result.h"

#include <QByteArray>

#include <memory>
#include <optional>

namespace Tessel {

class ClientWindows;
class TextClipboard;

/// What programs without windows ask of the desktop: the counterpart of Platform, without Qt Gui,
/// and without D-Bus but on GNOME. One thread, which waits in each call.
class HelperPlatform
{
public:
    virtual ~HelperPlatform() = default;

    [[nodiscard]] virtual TextClipboard &clipboard() = 0;
    [[nodiscard]] virtual ClientWindows &clientWindows() = 0;
    virtual void ringBell() = 0;

    /// Qt's plugin for windows on this desktop.
    [[nodiscard]] virtual QByteArray qtPlugin() const = 0;
};

/// Connects to the desktop; the backend is chosen as makePlatform() does. On GNOME it needs the
/// application object.
[[nodiscard]] Result<std::unique_ptr<HelperPlatform>> makeHelperPlatform();

/// Qt's plugin to show windows with; empty: whichever Qt chooses. Nothing without a display, where
/// Qt would end the process with a core dump. Needs no application object.
[[nodiscard]] std::optional<QByteArray> qtPluginForWindows();

}
