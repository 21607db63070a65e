// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "Notification.h"

#include "TextRules.h"
#include "platform/freedesktop/XdgOpen.h"

#include <QDBusConnection>
#include <QDBusInterface>
#include <QDBusReply>

using namespace Qt::StringLiterals;

namespace {

const auto service = u"org.freedesktop.Notifications"_s;
const auto objectPath = u"/org/freedesktop/Notifications"_s;
constexpr int replyTimeout = 5000; ///< milliseconds
constexpr int serversOwnExpiry = -1;

/// Servers cut off what they have no room for; this only keeps the messages small.
constexpr qsizetype longestText = 4000;

}

QString Notification::show()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    QDBusInterface server(service, objectPath, service, bus);
    server.setTimeout(replyTimeout);
    const QDBusReply<QStringList> abilities = server.call(u"GetCapabilities"_s);
    if (!abilities.isValid())
        return u"The desktop shows no notifications: "_s + abilities.error().message();

    QString summary = title;
    QStringList lines { subtitle, text };
    if (summary.isEmpty())
        summary = lines.takeLast();
    lines.removeAll(QString());
    QString body = displayable(lines.join(u'\n').left(longestText));
    if (abilities.value().contains(u"body-markup"_s))
        body = body.toHtmlEscaped();
    QStringList actions;
    if (!file.isEmpty() && abilities.value().contains(u"actions"_s)) {
        actions = { u"default"_s, u"Open"_s, u"open"_s, u"Open"_s };
        bus.connect(service, objectPath, service, u"ActionInvoked"_s, this,
                    SLOT(actionInvoked(uint, QString)));
        bus.connect(service, objectPath, service, u"NotificationClosed"_s, this,
                    SLOT(notificationClosed(uint, uint)));
    }
    const QDBusReply<uint> id = server.call(u"Notify"_s, u"Tessel"_s, uint(0), u"tessel"_s,
                                            displayable(summary.left(longestText)), body, actions,
                                            QVariantMap(), serversOwnExpiry);
    if (!id.isValid())
        return u"The notification was refused: "_s + id.error().message();
    m_id = id.value();
    if (actions.isEmpty())
        QMetaObject::invokeMethod(this, &Notification::finished, Qt::QueuedConnection);
    return {};
}

void Notification::actionInvoked(uint id, const QString &)
{
    if (id != m_id)
        return;
    [[maybe_unused]] const auto error = xdgOpen(file); // there is nobody left to tell
    Q_EMIT finished();
}

void Notification::notificationClosed(uint id, uint)
{
    if (id == m_id)
        Q_EMIT finished();
}
