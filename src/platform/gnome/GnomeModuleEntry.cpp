// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/gnome/GnomeHelperPlatform.h"
#include "platform/gnome/GnomeModule.h"
#include "platform/gnome/GnomeSyntheticKeyboard.h"
#include "platform/gnome/ShellCalls.h"

extern "C" Q_DECL_EXPORT const Tessel::GnomeModule *Tessel::tesselGnomeModule()
{
    static constexpr GnomeModule module {
        .version = TESSEL_VERSION,
        .answers = ShellCalls::areAnswered,
        .connect = GnomeHelperPlatform::connect,
        .connectKeyboard = GnomeSyntheticKeyboard::connect,
    };
    return &module;
}
