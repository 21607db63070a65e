// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/HelperPlatform.h"
#include "platform/gnome/GnomeClientWindows.h"
#include "platform/gnome/GnomeTextClipboard.h"

namespace Tessel {

/// GNOME by the shell's extension, for programs without windows.
class GnomeHelperPlatform final : public HelperPlatform
{
public:
    [[nodiscard]] static Result<std::unique_ptr<HelperPlatform>> connect();

    [[nodiscard]] TextClipboard &clipboard() override { return m_clipboard; }
    [[nodiscard]] ClientWindows &clientWindows() override { return m_clientWindows; }
    void ringBell() override;
    [[nodiscard]] QByteArray qtPlugin() const override { return "wayland"; }

private:
    GnomeTextClipboard m_clipboard;
    GnomeClientWindows m_clientWindows;
};

}
