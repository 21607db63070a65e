// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/FreedesktopAppearance.h"

#include "platform/DesktopBus.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

// Smaller cannot be read, larger does not fit: a mistake of whoever wrote the setting.
constexpr double minFontSize = 6;
constexpr double maxFontSize = 32;

const auto service = u"org.freedesktop.portal.Desktop"_s;
const auto objectPath = u"/org/freedesktop/portal/desktop"_s;
const auto settings = u"org.freedesktop.portal.Settings"_s;
const auto appearanceGroup = u"org.freedesktop.appearance"_s;
const auto interfaceGroup = u"org.gnome.desktop.interface"_s;
const auto colorScheme = u"color-scheme"_s;
const auto fontName = u"font-name"_s;
const auto textScale = u"text-scaling-factor"_s;

/// 1 and 2; anything else is no preference.
std::optional<bool> isDarkScheme(uint scheme)
{
    return scheme == 1 || scheme == 2 ? std::optional(scheme == 1) : std::nullopt;
}

template <typename T, typename... More>
std::optional<T> firstKnown(const std::optional<T> &first, const More &...more)
{
    std::optional<T> known = first;
    ((known = known ? known : more), ...);
    return known;
}

}

void FreedesktopAppearance::start()
{
    // Before the bus's own thread does it: when both do at once, Qt 6.4 may give the type two
    // identities, and then no signal matches the slot.
    qRegisterMetaType<QDBusVariant>();
    readKdeSettings();
    DesktopBus::whenReady(this, [this] { listen(); });
}

void FreedesktopAppearance::listen()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    // Whoever sends it: Qt would wait for the bus to tell the owner of a name.
    bus.connect({}, objectPath, settings, u"SettingChanged"_s, this,
                SLOT(settingChanged(QString, QString, QDBusVariant)));
    bus.connect({}, u"/KGlobalSettings"_s, u"org.kde.KGlobalSettings"_s, u"notifyChange"_s, this,
                SLOT(readKdeSettings()));
    ask(appearanceGroup, colorScheme);
    ask(interfaceGroup, fontName);
    ask(interfaceGroup, textScale);
}

void FreedesktopAppearance::setSystemLook(const DesktopLook &look)
{
    m_system = look;
    update();
}

void FreedesktopAppearance::readKdeSettings()
{
    m_kde = readKdeGlobals();
    update();
}

void FreedesktopAppearance::ask(const QString &group, const QString &key)
{
    auto message = QDBusMessage::createMethodCall(service, objectPath, settings, u"Read"_s);
    message.setArguments({ group, key });
    auto *watcher
        = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(message), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, group, key] {
        watcher->deleteLater();
        const QDBusPendingReply<QDBusVariant> reply = *watcher;
        if (reply.isValid())
            settingChanged(group, key, reply.value());
    });
}

void FreedesktopAppearance::settingChanged(const QString &group, const QString &key,
                                           const QDBusVariant &value)
{
    // The method "Read" wraps the value in a second variant.
    const QVariant outer = value.variant();
    const QVariant inner
        = outer.canConvert<QDBusVariant>() ? outer.value<QDBusVariant>().variant() : outer;
    if (group == appearanceGroup && key == colorScheme)
        m_portal.isDark = isDarkScheme(inner.toUInt());
    else if (group == interfaceGroup && key == fontName)
        m_portal.fontSize = sizeOfPangoFont(inner.toString());
    else if (group == interfaceGroup && key == textScale)
        m_textScale = inner.toDouble() > 0 ? inner.toDouble() : 1;
    update();
}

void FreedesktopAppearance::update()
{
    const bool isDark = firstKnown(m_portal.isDark, m_system.isDark, m_kde.isDark).value_or(false);
    const double portalSize = m_portal.fontSize.value_or(standardFontSize) * m_textScale;
    const double fontSize
        = std::clamp(firstKnown(m_system.fontSize, m_kde.fontSize).value_or(portalSize),
                     minFontSize, maxFontSize);
    const bool isSame = isDark == m_isDark && qFuzzyCompare(fontSize, m_fontSize);
    m_isDark = isDark;
    m_fontSize = fontSize;
    if (!isSame)
        Q_EMIT changed();
}

}
