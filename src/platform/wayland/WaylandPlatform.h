// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/PlatformWith.h"

namespace Tessel {

struct WaylandServices;

/// The services of a compositor that lets programs lie above others and see the clipboard: sway,
/// labwc, Hyprland and others of their kind, and KWin. Over a connection apart from Qt's.
class WaylandPlatform final : public PlatformWith<WaylandServices>
{
public:
    /// Whether the session's compositor is one, and Qt can show windows on it.
    [[nodiscard]] static bool isOffered();

    /// Fails when the compositor cannot be reached.
    [[nodiscard]] static Result<std::unique_ptr<Platform>> connect();
    ~WaylandPlatform() override;

    [[nodiscard]] QString notice() const override;
    [[nodiscard]] QByteArray qtPlugin() const override { return "wayland"; }
    [[nodiscard]] QMap<QString, QString> qtVariables() const override;
    void start() override;

private:
    explicit WaylandPlatform(std::unique_ptr<WaylandServices> services);
};

}
