// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/PlatformWith.h"

namespace Tessel {

enum class ClipboardHolder;

struct X11Services;

/// The services of an X11 desktop, over one connection apart from Qt's.
class X11Platform final : public PlatformWith<X11Services>
{
public:
    /// Fails when the X server cannot be reached.
    [[nodiscard]] static Result<std::unique_ptr<Platform>> connect();

    /// For a desktop of another window system, whose X server (XWayland) Qt's windows are not on.
    [[nodiscard]] static Result<std::unique_ptr<Platform>> connectBeside();
    ~X11Platform() override;

    [[nodiscard]] QString notice() const override;
    [[nodiscard]] QByteArray qtPlugin() const override { return "xcb"; }
    void start() override;

private:
    static Result<std::unique_ptr<Platform>> connectWith(ClipboardHolder holder);
    explicit X11Platform(std::unique_ptr<X11Services> services);
};

}
