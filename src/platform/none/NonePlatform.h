// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Platform.h"

namespace Tessel {

/// A desktop on which windows can be shown, but neither keys nor selected text be seen. The program
/// starts and says so (Workspace::missingAccess).
class NonePlatform final : public Platform
{
public:
    /// Whether Qt can show windows.
    [[nodiscard]] static bool isOffered();
    [[nodiscard]] static Result<std::unique_ptr<Platform>> connect();
    ~NonePlatform() override;

    [[nodiscard]] QString notice() const override { return {}; }
    [[nodiscard]] QByteArray qtPlugin() const override;
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
    explicit NonePlatform(std::unique_ptr<Services> services);

    std::unique_ptr<Services> m_services;
};

}
