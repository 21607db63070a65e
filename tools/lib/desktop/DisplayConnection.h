// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/HelperPlatform.h"

#include <optional>

namespace Tessel {

/// The connection to the desktop, made when somebody first needs it: most scripts do not.
class DisplayConnection final
{
public:
    /// Fails when there is no desktop. Lives as long as this object.
    [[nodiscard]] Result<HelperPlatform *> platform();

private:
    std::optional<Result<std::unique_ptr<HelperPlatform>>> m_platform;
};

}
