// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Platform.h"

#include <utility>

namespace Tessel {

/// A platform whose services are members of a structure, each with the name of its accessor. The
/// structure need only be known where the platform is made.
template <typename Services> class PlatformWith : public Platform
{
public:
    [[nodiscard]] EventMonitor &eventMonitor() override { return m_services->eventMonitor; }
    [[nodiscard]] CopyRequest &copyRequest() override { return m_services->copyRequest; }
    [[nodiscard]] Pasteboard &pasteboard() override { return m_services->pasteboard; }
    [[nodiscard]] Workspace &workspace() override { return m_services->workspace; }
    [[nodiscard]] PopupHost &popupHost() override { return m_services->popupHost; }
    [[nodiscard]] Appearance &appearance() override { return m_services->appearance; }
    [[nodiscard]] StatusArea &statusArea() override { return m_services->statusArea; }

protected:
    explicit PlatformWith(std::unique_ptr<Services> services)
        : m_services(std::move(services))
    {
    }

    std::unique_ptr<Services> m_services;
};

}
