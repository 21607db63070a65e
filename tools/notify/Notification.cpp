// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "notify/Notification.h"

#include "base/LocalizationManager.h"
#include "base/TextRules.h"
#include "notify/LastNotification.h"
#include "platform/freedesktop/XdgOpen.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusReply>
#include <QDeadlineTimer>

#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace Tessel {

namespace {

const auto service = u"org.freedesktop.Notifications"_s;
const auto objectPath = u"/org/freedesktop/Notifications"_s;
constexpr auto maxWait = 5s; ///< for all of the server's answers
constexpr int serversOwnExpiry = -1;
constexpr int maxAnswer = 2000; ///< milliseconds, of the program

/// Servers cut off what they have no room for; this only keeps the messages small.
constexpr qsizetype maxText = 4000;

QDBusMessage preferencesCall()
{
    const auto name = u"com.tessel.app"_s;
    return QDBusMessage::createMethodCall(name, u"/com/tessel/app"_s, name, u"ShowPreferences"_s);
}

QDBusMessage call(const QString &method, const QVariantList &arguments, QDeadlineTimer deadline)
{
    auto message = QDBusMessage::createMethodCall(service, objectPath, service, method);
    message.setArguments(arguments);
    const auto left = std::max<qint64>(1, deadline.remainingTime());
    return QDBusConnection::sessionBus().call(message, QDBus::Block, static_cast<int>(left));
}

}

Notification::Notification(DesktopNotification content)
    : m_content(std::move(content))
{
}

Result<void> Notification::show()
{
    const QDeadlineTimer deadline(maxWait);
    const QDBusMessage answer = call(u"GetCapabilities"_s, {}, deadline);
    const QDBusReply<QStringList> abilities = answer;
    if (!abilities.isValid())
        return Failure { u"The desktop shows no notifications: "_s + abilities.error().message() };

    QString summary = m_content.title;
    QStringList lines { m_content.subtitle, m_content.text };
    if (summary.isEmpty())
        summary = lines.takeLast();
    lines.removeAll(QString());
    QString body = displayable(lines.join(u'\n').left(maxText));
    if (abilities.value().contains(u"body-markup"_s))
        body = body.toHtmlEscaped();
    const QStringList actions = offer(abilities);
    const LastNotification last(m_content.topic, answer.service());
    const QDBusReply<uint> id = call(
        u"Notify"_s,
        { u"Tessel"_s, last.id(), u"tessel"_s, displayable(summary.left(maxText)), body, actions,
          QVariantMap { { u"desktop-entry"_s, u"com.tessel.app"_s } }, serversOwnExpiry },
        deadline);
    if (!id.isValid())
        return Failure { u"The notification was refused: "_s + id.error().message() };
    m_id = id.value();
    last.setId(m_id);
    if (actions.isEmpty())
        QMetaObject::invokeMethod(this, &Notification::finished, Qt::QueuedConnection);
    return {};
}

/// The button, which this object is then told about; none where the server has none.
QStringList Notification::offer(const QStringList &abilities)
{
    const QString label
        = m_content.preferences.isEmpty() ? localized(u"Open"_s) : m_content.preferences;
    if ((m_content.file.isEmpty() && m_content.preferences.isEmpty())
        || !abilities.contains(u"actions"_s))
        return {};
    QDBusConnection bus = QDBusConnection::sessionBus();
    bus.connect(service, objectPath, service, u"ActionInvoked"_s, this,
                SLOT(actionInvoked(uint, QString)));
    bus.connect(service, objectPath, service, u"NotificationClosed"_s, this,
                SLOT(notificationClosed(uint, uint)));
    return { u"default"_s, label, u"open"_s, label };
}

void Notification::actionInvoked(uint id, const QString &)
{
    if (id != m_id)
        return;
    if (!m_content.preferences.isEmpty()) {
        QDBusConnection::sessionBus().call(preferencesCall(), QDBus::Block, maxAnswer);
    } else {
        [[maybe_unused]] const auto opened
            = xdgOpen(m_content.file); // there is nobody left to tell
    }
    Q_EMIT finished();
}

void Notification::notificationClosed(uint id, uint)
{
    if (id == m_id)
        Q_EMIT finished();
}

}
