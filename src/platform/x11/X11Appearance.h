// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/FreedesktopAppearance.h"

namespace Tessel {

class X11Connection;
class X11Event;

/// Also what the desktop's XSETTINGS manager says; when it is gone, what it said last.
class X11Appearance final : public FreedesktopAppearance
{
    Q_OBJECT

public:
    explicit X11Appearance(X11Connection &connection);

private:
    void handle(const X11Event &event);
    void follow(quint32 manager);
    void read();

    X11Connection &m_connection;
    quint32 m_selection;
    quint32 m_settings;
    quint32 m_manager = 0;
    std::shared_ptr<void> m_subscription;
};

}
