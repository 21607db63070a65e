// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/PortalAppearance.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

namespace Tessel {

namespace {

constexpr uint preferDark = 1;
const auto service = QStringLiteral("org.freedesktop.portal.Desktop");
const auto objectPath = QStringLiteral("/org/freedesktop/portal/desktop");
const auto settings = QStringLiteral("org.freedesktop.portal.Settings");
const auto appearanceGroup = QStringLiteral("org.freedesktop.appearance");
const auto colorScheme = QStringLiteral("color-scheme");

}

void PortalAppearance::start()
{
    // Before the bus's own thread does it: when both do at once, Qt 6.4 may give the type two
    // identities, and then no signal matches the slot.
    qRegisterMetaType<QDBusVariant>();
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    bus.connect(service, objectPath, settings, QStringLiteral("SettingChanged"), this,
                SLOT(settingChanged(QString, QString, QDBusVariant)));
    auto message
        = QDBusMessage::createMethodCall(service, objectPath, settings, QStringLiteral("Read"));
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
