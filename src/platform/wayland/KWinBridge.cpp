// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/wayland/KWinBridge.h"

#include "platform/DesktopBus.h"
#include "platform/wayland/BusObject.h"
#include "platform/wayland/KWinScript.h"
#include "platform/wayland/KWinScripts.h"
#include "platform/wayland/WaylandConnection.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

QRect rectOf(const QJsonObject &object)
{
    return QRectF(object[u"x"].toDouble(), object[u"y"].toDouble(), object[u"width"].toDouble(),
                  object[u"height"].toDouble())
        .toRect();
}

}

bool KWinBridge::isOffered(const WaylandConnection &connection)
{
    return connection.offers("org_kde_plasma_shell");
}

KWinBridge::KWinBridge() = default;
KWinBridge::~KWinBridge() = default;

void KWinBridge::start()
{
    DesktopBus::whenReady(this, [this] {
        const BusObject bus { u"org.freedesktop.DBus"_s, u"/"_s, u"org.freedesktop.DBus"_s };
        bus.call("GetNameOwner", { u"org.kde.KWin"_s }, this, [this](const QVariantList &reply) {
            m_kwin = reply.value(0).toString();
            runScript();
        });
    });
}

void KWinBridge::runScript()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.registerObject(u"/KWin"_s, this, QDBusConnection::ExportScriptableSlots))
        return;
    m_script = std::make_unique<KWinScript>(
        u"tessel"_s, KWinScripts::watch(bus.baseService(), QCoreApplication::applicationPid()));
}

std::optional<WaylandWindow> KWinBridge::active() const
{
    for (const WaylandWindow &window : m_windows) {
        if (window.handle == m_active)
            return window;
    }
    return {};
}

void KWinBridge::activate(quint64 handle)
{
    request(handle, u"isSix ? workspace.activeWindow = window : workspace.activeClient = window"_s);
}

void KWinBridge::close(quint64 handle)
{
    request(handle, u"window.closeWindow()"_s);
}

std::optional<QRect> KWinBridge::workArea(const QRect &screen) const
{
    const auto area = std::find_if(m_workAreas.cbegin(), m_workAreas.cend(),
                                   [&](const QRect &rect) { return screen.contains(rect); });
    return area == m_workAreas.cend() ? std::nullopt : std::optional(*area);
}

void KWinBridge::update(const QString &state)
{
    if (!isFromKWin())
        return;
    read(state);
    if (!std::exchange(m_isReady, true))
        Q_EMIT ready();
}

void KWinBridge::trigger(const QString &state)
{
    if (!isFromKWin())
        return;
    read(state);
    Q_EMIT triggered();
}

void KWinBridge::finish(const QString &request)
{
    if (isFromKWin())
        m_requests.remove(request);
}

/// Whoever is on the bus could call.
bool KWinBridge::isFromKWin() const
{
    return calledFromDBus() && message().service() == m_kwin;
}

void KWinBridge::read(const QString &state)
{
    const QJsonObject root = QJsonDocument::fromJson(state.toUtf8()).object();
    const QHash<QString, quint64> known = std::exchange(m_handles, {});
    QList<WaylandWindow> windows;
    const QJsonArray list = root[u"windows"].toArray();
    for (const auto value : list) {
        const QJsonObject window = value.toObject();
        const QString id = window[u"id"].toString();
        const quint64 handle = known.contains(id) ? known[id] : ++m_lastHandle;
        m_handles.insert(id, handle);
        windows.append({ handle, window[u"application"].toString(), window[u"title"].toString(),
                         window[u"processId"].toInteger(), window[u"isMinimized"].toBool() });
    }
    const quint64 active = m_handles.value(root[u"active"].toString());
    const auto rank = [this, active](const WaylandWindow &window) {
        const auto before
            = std::find_if(m_windows.cbegin(), m_windows.cend(), [&](const WaylandWindow &other) {
                  return other.handle == window.handle;
              });
        return window.handle == active ? -1 : before - m_windows.cbegin();
    };
    std::stable_sort(
        windows.begin(), windows.end(),
        [&](const WaylandWindow &a, const WaylandWindow &b) { return rank(a) < rank(b); });
    m_windows = windows;
    m_workAreas.clear();
    const QJsonArray areas = root[u"workAreas"].toArray();
    for (const auto value : areas)
        m_workAreas.append(rectOf(value.toObject()));
    if (std::exchange(m_active, active) != active)
        Q_EMIT activeChanged();
}

void KWinBridge::request(quint64 handle, const QString &statement)
{
    const QString window = m_handles.key(handle);
    if (window.isEmpty())
        return;
    const QString name = u"tessel-request-%1"_s.arg(++m_lastRequest);
    const QString service = QDBusConnection::sessionBus().baseService();
    m_requests.insert(
        name,
        std::make_shared<KWinScript>(name, KWinScripts::request(service, name, window, statement)));
}

}
