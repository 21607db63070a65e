// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/PlatformWith.h"

namespace Tessel {

struct GnomeServices;

/// GNOME on Wayland, whose compositor has no protocols for what the program does: the extension of
/// ours in the shell does it, and X11 as well as it can while that is missing.
class GnomePlatform final : public PlatformWith<GnomeServices>
{
public:
    [[nodiscard]] static bool isOffered();

    /// `makeX11`: the services of X11 beside it, for as long as the extension is missing.
    using Maker = std::function<Result<std::unique_ptr<Platform>>()>;
    [[nodiscard]] static Result<std::unique_ptr<Platform>> connect(Maker makeX11);
    ~GnomePlatform() override;

    [[nodiscard]] QString notice() const override;
    [[nodiscard]] QByteArray qtPlugin() const override { return "wayland"; }
    [[nodiscard]] QMap<QString, QString> qtVariables() const override;
    /// Qt would draw frames if it had what is for graphics cards.
    [[nodiscard]] bool framesWindows() const override { return false; }
    void start() override;

private:
    explicit GnomePlatform(Maker makeX11);
};

}
