// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/BackendChoice.h"
#include "platform/SyntheticKeyboard.h"
#ifdef TESSEL_WAYLAND
#include "platform/gnome/GnomeModule.h"
#include "platform/wayland/KWinSyntheticKeyboard.h"
#include "platform/wayland/WaylandSyntheticKeyboard.h"
#endif
#ifdef TESSEL_X11
#include "platform/x11/X11Connection.h"
#include "platform/x11/X11SyntheticKeyboard.h"
#endif

namespace Tessel {

Result<std::unique_ptr<SyntheticKeyboard>> makeSyntheticKeyboard()
{
    return connectToDesktop<SyntheticKeyboard>({
#ifdef TESSEL_WAYLAND
        { "wayland", WaylandSyntheticKeyboard::isOffered, WaylandSyntheticKeyboard::connect },
        { "wayland", KWinSyntheticKeyboard::isOffered, KWinSyntheticKeyboard::connect },
        { "gnome", GnomeModule::isOffered, GnomeModule::makeSyntheticKeyboard },
#endif
#ifdef TESSEL_X11
        { "x11", X11Connection::isOffered, X11SyntheticKeyboard::connect },
#endif
    });
}

}
