// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/wayland/KWinTrigger.h"

#include "base/KeyCodes.h"
#include "platform/wayland/BusObject.h"
#include "platform/wayland/KWinBridge.h"
#include "platform/wayland/KWinFakeKeys.h"
#include "platform/wayland/KWinScripts.h"
#include "platform/wayland/KWinShortcut.h"

#include <QDBusArgument>
#include <QDBusConnection>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

const auto component = u"kwin"_s;
const auto action = QString::fromUtf16(KWinScripts::triggerAction);

/// Component, action, and the names that people read.
QStringList actionId()
{
    return { component, action, u"KWin"_s, u"Tessel"_s };
}

/// KGlobalAccel::setShortcut's flags: the action is there, and the key is this one, whatever the
/// settings say.
constexpr uint present = 2;
constexpr uint noAutoloading = 4;

/// A pause after which a press is none of a key that repeats, should its release get lost.
constexpr qint64 maxRepeatDelay = 3000;

/// The release of a key comes by another way than its press, which it may overtake.
constexpr qint64 quickTap = 50;

const BusObject shortcuts { u"org.kde.kglobalaccel"_s, u"/kglobalaccel"_s,
                            u"org.kde.KGlobalAccel"_s };

}

KWinTrigger::KWinTrigger(KWinBridge &bridge, KWinFakeKeys *keys)
    : m_bridge(bridge)
    , m_keys(keys)
{
    connect(&m_bridge, &KWinBridge::ready, this, &KWinTrigger::listen);
    connect(&m_bridge, &KWinBridge::triggered, this, &KWinTrigger::press);
}

KWinTrigger::~KWinTrigger()
{
    if (m_isRegistered)
        shortcuts.send("unregister", { component, action });
}

void KWinTrigger::set(const KeyChord &chord)
{
    m_chord = chord;
    assign();
}

void KWinTrigger::setWatching(bool isWatching)
{
    if (std::exchange(m_isWatching, isWatching) != isWatching)
        assign();
}

TriggerRoute KWinTrigger::route() const
{
    if (m_isTaken)
        return TriggerRoute::unbound;
    return m_keys ? TriggerRoute::kept : TriggerRoute::lost;
}

void KWinTrigger::listen()
{
    m_isRegistered = true;
    // From whoever: by the name of the service, Qt would wait for the bus.
    QDBusConnection::sessionBus().connect(
        {}, u"/component/kwin"_s, u"org.kde.kglobalaccel.Component"_s, u"globalShortcutReleased"_s,
        this, SLOT(release(QString, QString)));
    assign();
}

void KWinTrigger::press()
{
    const bool isRepeated = m_lastPress.isValid() && !m_lastPress.hasExpired(maxRepeatDelay);
    if (m_lastRelease.isValid() && !m_lastRelease.hasExpired(quickTap))
        m_lastPress.invalidate();
    else
        m_lastPress.start();
    if (isRepeated)
        return;
    m_isKept = true;
    Q_EMIT pressed();
}

void KWinTrigger::release(const QString &ofComponent, const QString &ofAction)
{
    if (ofComponent != component || ofAction != action)
        return;
    m_lastPress.invalidate();
    m_lastRelease.start();
}

void KWinTrigger::assign()
{
    const int key = kwinShortcut(m_chord);
    if (!m_isRegistered)
        return;
    m_lastPress.invalidate();
    if (!m_isWatching || !key)
        return shortcuts.send("setInactive", { actionId() });
    const QVariantList arguments { actionId(), QVariant::fromValue(QList<int> { key }),
                                   present | noAutoloading };
    shortcuts.call("setShortcut", arguments, this, [this, key](const QVariantList &reply) {
        const bool isTaken = !qdbus_cast<QList<int>>(reply.value(0)).contains(key);
        if (std::exchange(m_isTaken, isTaken) != isTaken)
            Q_EMIT routeChanged();
    });
}

void KWinTrigger::passOn()
{
    if (!std::exchange(m_isKept, false) || !m_keys)
        return;
    // KWin gets keys and calls by different sockets: each waits for the one before.
    shortcuts.call("setInactive", { actionId() }, this, [this](const QVariantList &) {
        m_keys->whenReady().then(this, [this] { pressForApplication(); });
    });
}

void KWinTrigger::pressForApplication()
{
    if (const auto key = KeyCodes::scanCodeFromVirtual(m_chord.keyCode))
        m_keys->press(*key, m_chord.modifiers);
    m_keys->whenHandled().then(this, [this] { assign(); });
}

}
