// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/HelperPlatform.h"
#include "platform/SyntheticKeyboard.h"

namespace Tessel {

/// The backend of helpers for GNOME, a module in their folder: it needs D-Bus, which would double
/// their start, and is loaded only while the program serves a shell.
struct GnomeModule
{
    const char *version; ///< the program's when it was built
    bool (*answers)(); ///< whether the shell's extension does
    Result<std::unique_ptr<HelperPlatform>> (*connect)();
    Result<std::unique_ptr<SyntheticKeyboard>> (*connectKeyboard)();

    // Rows of the factories. Without the module, or an answer, nothing is offered.
    [[nodiscard]] static bool isOffered();
    [[nodiscard]] static Result<std::unique_ptr<HelperPlatform>> makeHelperPlatform();
    [[nodiscard]] static Result<std::unique_ptr<SyntheticKeyboard>> makeSyntheticKeyboard();
};

/// What the module exports.
extern "C" const GnomeModule *tesselGnomeModule();

}
