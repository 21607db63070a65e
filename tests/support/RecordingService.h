// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "support/Session.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>

namespace Tessel::Desktop {

/// A service of the session bus that notes what it is asked for.
class RecordingService final : public QDBusVirtualObject
{
public:
    RecordingService(const Session &session, const QString &name)
        : m_name(name)
        , m_path(u'/' + QString(name).replace(u'.', u'/'))
        , m_bus(QDBusConnection::connectToBus(
              session.environment().value(QStringLiteral("DBUS_SESSION_BUS_ADDRESS")), name))
    {
        m_bus.registerVirtualObject(QStringLiteral("/"), this, QDBusConnection::SubPath);
        m_bus.registerService(name);
    }
    ~RecordingService() override { QDBusConnection::disconnectFromBus(m_name); }

    QList<QVariantList> calls; ///< their arguments
    bool isSilent = false; ///< it answers nothing

    void emitSignal(const QString &name, const QVariantList &arguments)
    {
        auto signal = QDBusMessage::createSignal(m_path, m_name, name);
        signal.setArguments(arguments);
        m_bus.send(signal);
    }

    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &bus) override
    {
        if (message.member() == u"GetCapabilities")
            return bus.send(message.createReply(
                QStringList { QStringLiteral("actions"), QStringLiteral("body-markup") }));
        calls += message.arguments();
        if (isSilent)
            return true;
        return bus.send(message.createReply(notificationId));
    }

    static constexpr uint notificationId = 7;

private:
    QString m_name;
    QString m_path;
    QDBusConnection m_bus;
};

}
