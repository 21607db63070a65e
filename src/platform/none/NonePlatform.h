// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/PlatformWith.h"

namespace Tessel {

struct NoneServices;

/// A desktop on which windows can be shown, but neither keys nor selected text be seen. The program
/// starts and says so (Workspace::missingAccess).
class NonePlatform final : public PlatformWith<NoneServices>
{
public:
    /// Whether Qt can show windows.
    [[nodiscard]] static bool isOffered();
    [[nodiscard]] static Result<std::unique_ptr<Platform>> connect();
    ~NonePlatform() override;

    [[nodiscard]] QString notice() const override { return {}; }
    [[nodiscard]] QByteArray qtPlugin() const override;
    void start() override;

private:
    explicit NonePlatform(std::unique_ptr<NoneServices> services);
};

}
