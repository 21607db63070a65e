// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "app/BusService.h"

#include "platform/DesktopBus.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

constexpr uint doNotQueue = 4; ///< D-Bus Specification, "org.freedesktop.DBus.RequestName"

}

BusService::BusService(QObject *object)
    : QDBusAbstractAdaptor(object)
{
    DesktopBus::whenReady(this, [this] { appear(); });
}

void BusService::appear()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.registerObject(u"/com/tessel/app"_s, parent()))
        return;
    // Qt's own request for a name waits for the answer.
    const auto daemon = u"org.freedesktop.DBus"_s;
    auto request = QDBusMessage::createMethodCall(daemon, u"/org/freedesktop/DBus"_s, daemon,
                                                  u"RequestName"_s);
    request.setArguments({ u"com.tessel.app"_s, doNotQueue });
    bus.asyncCall(request);
}

}
