// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Platform.h"

namespace Tessel {

/// The services of a compositor that lets programs lie above others and see the clipboard: sway,
/// labwc, Hyprland and others of their kind, and KWin. Over a connection apart from Qt's.
class WaylandPlatform final : public Platform
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
    [[nodiscard]] EventMonitor &eventMonitor() override;
    [[nodiscard]] CopyRequest &copyRequest() override;
    [[nodiscard]] Pasteboard &pasteboard() override;
    [[nodiscard]] Workspace &workspace() override;
    [[nodiscard]] PopupHost &popupHost() override;
    [[nodiscard]] Appearance &appearance() override;
    [[nodiscard]] StatusArea &statusArea() override;

private:
    struct Services;
    explicit WaylandPlatform(std::unique_ptr<Services> services);

    std::unique_ptr<Services> m_services;
};

}
