// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/wayland/PortalShortcuts.h"

#include "base/BaseFolders.h"
#include "base/LocalizationManager.h"
#include "platform/DesktopBus.h"
#include "platform/wayland/KeyBinding.h"

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusPendingCall>
#include <QDir>
#include <QFile>
#include <QGuiApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

const auto connectionName = u"com.tessel.app.shortcuts"_s;
const auto service = u"org.freedesktop.portal.Desktop"_s;
const auto desktopPath = u"/org/freedesktop/portal/desktop"_s;
const auto shortcutsInterface = u"org.freedesktop.portal.GlobalShortcuts"_s;
const auto requestInterface = u"org.freedesktop.portal.Request"_s;

/// An entry of the portal's lists, a(sa{sv}).
struct Shortcut
{
    QString id;
    QVariantMap properties;
};

QDBusArgument &operator<<(QDBusArgument &argument, const Shortcut &shortcut)
{
    argument.beginStructure();
    argument << shortcut.id << shortcut.properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, Shortcut &shortcut)
{
    argument.beginStructure();
    argument >> shortcut.id >> shortcut.properties;
    argument.endStructure();
    return argument;
}

/// Hyprland's portal takes every shortcut and leaves it to the user to give it a key.
bool hasKey(const Shortcut &shortcut)
{
    const QVariant key = shortcut.properties.value(u"trigger_description"_s);
    return !key.isValid() || !key.toString().isEmpty();
}

QDBusMessage callTo(const QString &path, const QString &interface, const QString &method,
                    const QVariantList &arguments = {})
{
    auto message = QDBusMessage::createMethodCall(service, path, interface, method);
    message.setArguments(arguments);
    return message;
}

/// Holds the shortcut that the user has refused, so that it is not asked for at each start.
QString refusalPath()
{
    return BaseFolders::state() + u"/refused-shortcut"_s;
}

bool isRefused(const QString &shortcut)
{
    QFile file(refusalPath());
    return file.open(QFile::ReadOnly) && QString::fromUtf8(file.readAll()) == shortcut;
}

void rememberRefusal(const QString &shortcut)
{
    QDir().mkpath(BaseFolders::state());
    if (QFile file(refusalPath()); file.open(QFile::WriteOnly))
        file.write(shortcut.toUtf8());
}

}

PortalShortcuts::PortalShortcuts()
    : m_bus(u"none yet"_s)
{
    qDBusRegisterMetaType<Shortcut>();
    qDBusRegisterMetaType<QList<Shortcut>>();
    DesktopBus::whenReady(this, [this] { connectToPortal(); });
}

PortalShortcuts::~PortalShortcuts()
{
    QDBusConnection::disconnectFromBus(connectionName); // which ends the session
}

void PortalShortcuts::set(const KeyChord &chord)
{
    if (m_chord == chord)
        return;
    if (m_chord.keyCode >= 0)
        QFile::remove(refusalPath()); // who chooses another one wants to be asked
    m_chord = chord;
    setBound(false);
    ask();
}

TriggerRoute PortalShortcuts::route() const
{
    return m_isBound ? TriggerRoute::lost : TriggerRoute::unbound;
}

QString PortalShortcuts::binding() const
{
    return KeyBinding::configuration(m_chord);
}

/// A connection of its own: on one that the portal has seen already, it takes no name.
void PortalShortcuts::connectToPortal()
{
    m_bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, connectionName);
    if (!m_bus.isConnected())
        return;
    m_bus.connect({}, {}, requestInterface, u"Response"_s, this,
                  SLOT(handleResponse(uint, QVariantMap, QDBusMessage)));
    m_bus.connect({}, desktopPath, shortcutsInterface, u"Activated"_s, this,
                  SLOT(handleActivated(QDBusObjectPath)));
    // Portals before 1.20 do not have it and take our systemd unit's name.
    m_bus.asyncCall(callTo(desktopPath, u"org.freedesktop.host.portal.Registry"_s, u"Register"_s,
                           { QGuiApplication::desktopFileName(), QVariantMap() }));
    ask();
}

/// A session binds once: another chord needs another one.
void PortalShortcuts::ask()
{
    endSession();
    if (!m_bus.isConnected() || m_chord.keyCode < 0 || isRefused(shortcutId()))
        return;
    request(Step::creating, u"CreateSession"_s, {}, { { u"session_handle_token"_s, u"tessel"_s } });
}

void PortalShortcuts::bind()
{
    const Shortcut shortcut {
        shortcutId(),
        { { u"description"_s, localized(u"Offer actions for the selected text"_s) },
          { u"preferred_trigger"_s, KeyBinding::shortcut(m_chord) } },
    };
    request(Step::binding, u"BindShortcuts"_s,
            { QVariant::fromValue(QDBusObjectPath(m_session)),
              QVariant::fromValue(QList<Shortcut> { shortcut }), QString() },
            {});
}

void PortalShortcuts::endSession()
{
    m_step = Step::none;
    if (const QString session = std::exchange(m_session, {}); !session.isEmpty())
        m_bus.asyncCall(callTo(session, u"org.freedesktop.portal.Session"_s, u"Close"_s));
}

void PortalShortcuts::request(Step step, const QString &method, const QVariantList &arguments,
                              QVariantMap options)
{
    m_step = step;
    options.insert(u"handle_token"_s, u"tessel%1"_s.arg(++m_requests));
    m_bus.asyncCall(
        callTo(desktopPath, shortcutsInterface, method, arguments + QVariantList { options }));
}

void PortalShortcuts::handleResponse(uint code, const QVariantMap &results,
                                     const QDBusMessage &message)
{
    if (!message.path().endsWith(u"/tessel%1"_s.arg(m_requests)))
        return;
    switch (std::exchange(m_step, Step::none)) {
    case Step::creating:
        m_session = results[u"session_handle"_s].toString();
        if (code == 0 && !m_session.isEmpty())
            bind();
        break;
    case Step::binding: {
        // GNOME 48 answers that the dialog ended in some other way, with what was bound.
        const auto shortcuts = qdbus_cast<QList<Shortcut>>(results[u"shortcuts"_s]);
        if (shortcuts.isEmpty())
            rememberRefusal(shortcutId());
        setBound(std::any_of(shortcuts.cbegin(), shortcuts.cend(), hasKey));
        break;
    }
    case Step::none:
        break;
    }
}

void PortalShortcuts::handleActivated(const QDBusObjectPath &session)
{
    if (session.path() == m_session && m_isWatching)
        Q_EMIT pressed();
}

void PortalShortcuts::setBound(bool isBound)
{
    m_isBound = isBound;
    Q_EMIT routeChanged();
}

/// Of each chord another one: what is bound already keeps its key, whatever is preferred.
QString PortalShortcuts::shortcutId() const
{
    return u"trigger-%1-%2"_s.arg(m_chord.keyCode).arg(m_chord.modifiers);
}

}
