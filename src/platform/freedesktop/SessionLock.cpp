// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/SessionLock.h"

#include "platform/DesktopBus.h"

#include <QDBusConnection>

using namespace Qt::StringLiterals;

namespace Tessel {

void SessionLock::start()
{
    if (std::exchange(m_isStarted, true))
        return;
    DesktopBus::whenReady(this, [this] { listen(); });
}

void SessionLock::listen()
{
    // Whoever sends these signals: the worst that comes of it is a popup that is hidden. Qt would
    // wait for the bus to tell the owner of a name.
    QDBusConnection::systemBus().connect({}, {}, u"org.freedesktop.login1.Session"_s, u"Lock"_s,
                                         this, SLOT(lock()));
    for (const char *interface :
         { "org.freedesktop.ScreenSaver", "org.gnome.ScreenSaver", "org.cinnamon.ScreenSaver",
           "org.mate.ScreenSaver", "org.xfce.ScreenSaver" })
        QDBusConnection::sessionBus().connect({}, {}, QString::fromLatin1(interface),
                                              u"ActiveChanged"_s, this, SLOT(setActive(bool)));
}

void SessionLock::lock()
{
    Q_EMIT locked();
}

void SessionLock::setActive(bool isActive)
{
    if (isActive)
        Q_EMIT locked();
}

}
