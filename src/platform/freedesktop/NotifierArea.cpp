// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/NotifierArea.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusServiceWatcher>

using namespace Qt::StringLiterals;

namespace Tessel {

void NotifierArea::start()
{
    const auto host = u"org.kde.StatusNotifierWatcher"_s;
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    auto *watcher
        = new QDBusServiceWatcher(host, bus, QDBusServiceWatcher::WatchForRegistration, this);
    connect(watcher, &QDBusServiceWatcher::serviceRegistered, this, [this] {
        m_hasHost = true;
        Q_EMIT becameAvailable();
    });
    m_hasHost = bus.interface()->isServiceRegistered(host);
}

}
