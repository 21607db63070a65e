// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/FreedesktopAppearance.h"
#include "platform/x11/X11Manager.h"

namespace Tessel {

/// Also what the desktop's XSETTINGS manager says; when it is gone, what it said last.
class X11Appearance final : public FreedesktopAppearance
{
    Q_OBJECT

public:
    explicit X11Appearance(X11Connection &connection);

private:
    void read();

    X11Connection &m_connection;
    X11Manager m_manager;
};

}
