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

void callThen(const QDBusMessage &call, QObject *context,
              const std::function<void(const QDBusMessage &reply)> &then)
{
    auto *watcher
        = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call), context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, context, [watcher, then] {
        watcher->deleteLater();
        then(watcher->reply());
    });
}

}

void BusObject::send(const char *method, const QVariantList &arguments) const
{
    QDBusConnection::sessionBus().send(message(*this, method, arguments));
}

void BusObject::call(const char *method, const QVariantList &arguments, QObject *context,
                     const std::function<void(const QVariantList &reply)> &then) const
{
    callThen(message(*this, method, arguments), context, [then](const QDBusMessage &reply) {
        if (reply.type() == QDBusMessage::ReplyMessage)
            then(reply.arguments());
    });
}

void BusObject::ask(const char *method, const QVariantList &arguments, QObject *context,
                    const std::function<void(const QVariantList &reply)> &then) const
{
    callThen(message(*this, method, arguments), context, [then](const QDBusMessage &reply) {
        const bool isAnswer = reply.type() == QDBusMessage::ReplyMessage;
        then(isAnswer ? reply.arguments() : QVariantList());
    });
}

}
