// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/NotifierArea.h"

#include "platform/DesktopBus.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QDBusVariant>

#include <limits>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

const auto service = u"org.kde.StatusNotifierWatcher"_s;
constexpr int noLimit = std::numeric_limits<int>::max(); ///< nobody waits

}

void NotifierArea::start()
{
    DesktopBus::whenReady(this, [this] {
        QDBusConnection bus = QDBusConnection::sessionBus();
        if (!bus.isConnected())
            return;
        auto *watcher = new QDBusServiceWatcher(service, bus,
                                                QDBusServiceWatcher::WatchForRegistration, this);
        connect(watcher, &QDBusServiceWatcher::serviceRegistered, this, &NotifierArea::askHost);
        bus.connect({}, {}, service, u"StatusNotifierHostRegistered"_s, this, SLOT(askHost()));
    });
}

void NotifierArea::ask()
{
    DesktopBus::whenReady(this, [this] { askHost(); });
}

/// What Qt asks when it makes the item, but Qt waits.
void NotifierArea::askHost()
{
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return handleAnswer(false);
    auto message = QDBusMessage::createMethodCall(service, u"/StatusNotifierWatcher"_s,
                                                  u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    message.setArguments({ service, u"IsStatusNotifierHostRegistered"_s });
    message.setAutoStartService(false);
    auto *watcher = new QDBusPendingCallWatcher(bus.asyncCall(message, noLimit), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        const QDBusPendingReply<QDBusVariant> reply = *watcher;
        handleAnswer(reply.isValid() && reply.value().variant().toBool());
    });
}

void NotifierArea::handleAnswer(bool hasHost)
{
    m_hasHost = hasHost;
    if (m_hasHost || hasOtherTray())
        Q_EMIT becameAvailable();
}

}
