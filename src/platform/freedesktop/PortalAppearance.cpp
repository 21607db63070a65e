// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/PortalAppearance.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

constexpr uint preferDark = 1;
const auto service = u"org.freedesktop.portal.Desktop"_s;
const auto objectPath = u"/org/freedesktop/portal/desktop"_s;
const auto settings = u"org.freedesktop.portal.Settings"_s;
const auto appearanceGroup = u"org.freedesktop.appearance"_s;
const auto colorScheme = u"color-scheme"_s;

}

void PortalAppearance::start()
{
    // Before the bus's own thread does it: when both do at once, Qt 6.4 may give the type two
    // identities, and then no signal matches the slot.
    qRegisterMetaType<QDBusVariant>();
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    bus.connect(service, objectPath, settings, u"SettingChanged"_s, this,
                SLOT(settingChanged(QString, QString, QDBusVariant)));
    auto message = QDBusMessage::createMethodCall(service, objectPath, settings, u"Read"_s);
    message.setArguments({ appearanceGroup, colorScheme });
    auto *watcher = new QDBusPendingCallWatcher(bus.asyncCall(message), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        const QDBusPendingReply<QDBusVariant> reply = *watcher;
        if (reply.isValid())
            setColorScheme(reply.value().variant());
    });
}

void PortalAppearance::settingChanged(const QString &group, const QString &key,
                                      const QDBusVariant &value)
{
    if (group == appearanceGroup && key == colorScheme)
        setColorScheme(value.variant());
}

void PortalAppearance::setColorScheme(const QVariant &value)
{
    // The method "Read" wraps the value in a second variant.
    const QVariant inner
        = value.canConvert<QDBusVariant>() ? value.value<QDBusVariant>().variant() : value;
    const bool isDark = inner.toUInt() == preferDark;
    if (std::exchange(m_isDark, isDark) != isDark)
        Q_EMIT changed();
}

}
