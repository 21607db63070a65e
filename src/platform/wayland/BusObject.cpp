// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/wayland/BusObject.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>

namespace Tessel {

namespace {

QDBusMessage message(const BusObject &object, const char *method, const QVariantList &arguments)
{
    auto call = QDBusMessage::createMethodCall(object.service, object.path, object.interface,
                                               QString::fromLatin1(method));
    call.setArguments(arguments);
    call.setAutoStartService(false);
    return call;
}

}

void BusObject::send(const char *method, const QVariantList &arguments) const
{
    QDBusConnection::sessionBus().send(message(*this, method, arguments));
}

void BusObject::call(const char *method, const QVariantList &arguments, QObject *context,
                     const std::function<void(const QVariantList &reply)> &then) const
{
    auto *watcher = new QDBusPendingCallWatcher(
        QDBusConnection::sessionBus().asyncCall(message(*this, method, arguments)), context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, context, [watcher, then] {
        watcher->deleteLater();
        const QDBusMessage reply = watcher->reply();
        if (reply.type() == QDBusMessage::ReplyMessage)
            then(reply.arguments());
    });
}

}
