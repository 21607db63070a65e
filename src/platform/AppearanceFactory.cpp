// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/FreedesktopAppearance.h"
#ifdef TESSEL_X11
#include "platform/x11/X11Appearance.h"
#include "platform/x11/X11Connection.h"
#endif

namespace Tessel {

std::unique_ptr<Appearance> makeAppearance()
{
    std::unique_ptr<FreedesktopAppearance> appearance;
#ifdef TESSEL_X11
    if (X11Connection::isOffered()) {
        if (auto connection = X11Connection::open()) {
            (*connection)->start();
            appearance = std::make_unique<X11Appearance>(**connection);
            (*connection).release()->setParent(appearance.get());
        }
    }
#endif
    if (!appearance)
        appearance = std::make_unique<FreedesktopAppearance>();
    appearance->start();
    return appearance;
}

}
