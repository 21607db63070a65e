// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/HelperPlatform.h"
#include "platform/wayland/WaylandClientWindows.h"
#include "platform/wayland/WaylandTextClipboard.h"

#include <optional>

namespace Tessel {

/// A Wayland session for programs without windows, over one connection.
class WaylandHelperPlatform final : public HelperPlatform
{
public:
    /// Whether there is a compositor with a clipboard for programs that are not in front.
    [[nodiscard]] static bool isOffered();

    /// Fails when the compositor cannot be reached.
    [[nodiscard]] static Result<std::unique_ptr<HelperPlatform>> connect();

    [[nodiscard]] TextClipboard &clipboard() override;
    [[nodiscard]] ClientWindows &clientWindows() override;
    void ringBell() override;
    [[nodiscard]] QByteArray qtPlugin() const override;

private:
    explicit WaylandHelperPlatform(std::unique_ptr<WaylandConnection> connection);

    std::unique_ptr<WaylandConnection> m_connection;
    // Once they are asked for: each begins with requests.
    std::optional<WaylandTextClipboard> m_clipboard;
    std::optional<WaylandClientWindows> m_clientWindows;
};

}
