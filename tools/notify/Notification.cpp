// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "notify/Notification.h"

#include "base/TextRules.h"
#include "platform/freedesktop/XdgOpen.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusReply>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

const auto service = u"org.freedesktop.Notifications"_s;
const auto objectPath = u"/org/freedesktop/Notifications"_s;
constexpr int replyTimeout = 5000; ///< milliseconds
constexpr int serversOwnExpiry = -1;

/// Servers cut off what they have no room for; this only keeps the messages small.
constexpr qsizetype maxText = 4000;

QDBusMessage call(const QString &method, const QVariantList &arguments = {})
{
    auto message = QDBusMessage::createMethodCall(service, objectPath, service, method);
    message.setArguments(arguments);
    return QDBusConnection::sessionBus().call(message, QDBus::Block, replyTimeout);
}

}

Result<void> Notification::show()
{
    const QDBusReply<QStringList> abilities = call(u"GetCapabilities"_s);
    if (!abilities.isValid())
        return Failure { u"The desktop shows no notifications: "_s + abilities.error().message() };

    QString summary = title;
    QStringList lines { subtitle, text };
    if (summary.isEmpty())
        summary = lines.takeLast();
    lines.removeAll(QString());
    QString body = displayable(lines.join(u'\n').left(maxText));
    if (abilities.value().contains(u"body-markup"_s))
        body = body.toHtmlEscaped();
    QStringList actions;
    if (!file.isEmpty() && abilities.value().contains(u"actions"_s)) {
        actions = { u"default"_s, u"Open"_s, u"open"_s, u"Open"_s };
        QDBusConnection bus = QDBusConnection::sessionBus();
        bus.connect(service, objectPath, service, u"ActionInvoked"_s, this,
                    SLOT(actionInvoked(uint, QString)));
        bus.connect(service, objectPath, service, u"NotificationClosed"_s, this,
                    SLOT(notificationClosed(uint, uint)));
    }
    const QDBusReply<uint> id
        = call(u"Notify"_s,
               { u"Tessel"_s, uint(0), u"tessel"_s, displayable(summary.left(maxText)), body,
                 actions, QVariantMap(), serversOwnExpiry });
    if (!id.isValid())
        return Failure { u"The notification was refused: "_s + id.error().message() };
    m_id = id.value();
    if (actions.isEmpty())
        QMetaObject::invokeMethod(this, &Notification::finished, Qt::QueuedConnection);
    return {};
}

void Notification::actionInvoked(uint id, const QString &)
{
    if (id != m_id)
        return;
    [[maybe_unused]] const auto opened = xdgOpen(file); // there is nobody left to tell
    Q_EMIT finished();
}

void Notification::notificationClosed(uint id, uint)
{
    if (id == m_id)
        Q_EMIT finished();
}

}
