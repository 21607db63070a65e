// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "app/BusService.h"

#include "platform/DesktopBus.h"

#include <QDBusConnection>
#include <QDBusPendingCall>
#include <QDBusReply>

#include <utility>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

constexpr uint doNotQueue = 4; ///< D-Bus Specification, "org.freedesktop.DBus.RequestName"
constexpr int maxWait = 1000; ///< milliseconds

const auto name = u"com.tessel.app"_s;
const auto path = u"/com/tessel/app"_s;

QDBusMessage callOfDaemon(const QString &method, const QVariantList &arguments)
{
    const auto daemon = u"org.freedesktop.DBus"_s;
    auto call = QDBusMessage::createMethodCall(daemon, u"/org/freedesktop/DBus"_s, daemon, method);
    call.setArguments(arguments);
    return call;
}

void refuse(const QDBusMessage &call, const QString &error, const QString &reason)
{
    call.setDelayedReply(true);
    QDBusConnection::sessionBus().send(call.createErrorReply(name + u".Error."_s + error, reason));
}

}

BusService::BusService(QObject *object, Handlers handlers, QString state)
    : QDBusAbstractAdaptor(object)
    , m_handlers(std::move(handlers))
    , m_state(std::move(state))
{
    DesktopBus::whenReady(this, [this] { appear(); });
}

void BusService::appear()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.registerObject(path, parent()))
        return;
    // Qt's own request for a name waits for the answer.
    bus.asyncCall(callOfDaemon(u"RequestName"_s, { name, doNotQueue }));
}

void BusService::setState(const QString &state)
{
    if (std::exchange(m_state, state) == state || !DesktopBus::isReady())
        return;
    auto changed = QDBusMessage::createSignal(path, u"org.freedesktop.DBus.Properties"_s,
                                              u"PropertiesChanged"_s);
    changed.setArguments({ name, QVariantMap { { u"State"_s, state } }, QStringList() });
    QDBusConnection::sessionBus().send(changed);
}

void BusService::RunAction(const QString &id, const QString &text, const QDBusMessage &call)
{
    switch (m_handlers.startAction(id, text)) {
    case ActionManager::Start::done:
        break;
    case ActionManager::Start::unknownAction:
        refuse(call, u"UnknownAction"_s, u"No action that can run has the id \"%1\"."_s.arg(id));
        break;
    case ActionManager::Start::notApplicable:
        refuse(call, u"NotApplicable"_s, u"The action does not apply to the text."_s);
        break;
    }
}

bool BusService::showPreferencesOf(qint32 process)
{
    if (!DesktopBus::isReady())
        return false;
    const QDBusConnection bus = QDBusConnection::sessionBus();
    const QDBusReply<uint> owner
        = bus.call(callOfDaemon(u"GetConnectionUnixProcessID"_s, { name }), QDBus::Block, maxWait);
    if (!owner.isValid() || qint64(owner.value()) != process)
        return false;
    const auto request = QDBusMessage::createMethodCall(name, path, name, u"ShowPreferences"_s);
    return bus.call(request, QDBus::Block, maxWait).type() == QDBusMessage::ReplyMessage;
}

}
