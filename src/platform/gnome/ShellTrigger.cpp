// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/gnome/ShellTrigger.h"

#include "base/KeyCodes.h"
#include "platform/gnome/ShellBridge.h"
#include "platform/gnome/ShellInterface.h"
#include "platform/gnome/ShellKeys.h"

#include <QTimer>

#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace Tessel {

namespace {

constexpr qint64 deliveryTime = 20; ///< milliseconds, of a press until we hear of it
constexpr qint64 maxRepeatInterval = 50; ///< milliseconds
constexpr qint64 maxPressTime = 1000; ///< milliseconds
constexpr auto untilNextLook = 20ms;
constexpr auto untilPressed = 100ms;

}

ShellTrigger::ShellTrigger(const ShellBridge &bridge, ShellKeys &keys)
    : m_bridge(bridge)
    , m_keys(keys)
{
    connect(&bridge, &ShellBridge::attached, this, &ShellTrigger::assign);
    connect(&bridge, &ShellBridge::detached, this, &WaylandTrigger::routeChanged);
    connect(&bridge, &ShellBridge::triggered, this, [this] {
        m_isKept = true;
        m_sincePress.start();
        Q_EMIT pressed();
    });
}

void ShellTrigger::set(const KeyChord &chord)
{
    m_chord = chord;
    assign();
}

void ShellTrigger::setWatching(bool isWatching)
{
    if (std::exchange(m_isWatching, isWatching) != isWatching)
        assign();
}

TriggerRoute ShellTrigger::route() const
{
    return m_bridge.isAttached() && !m_isTaken ? TriggerRoute::kept : TriggerRoute::unbound;
}

void ShellTrigger::assign()
{
    const QString accelerator = m_isWatching ? ShellInterface::acceleratorOf(m_chord) : QString();
    m_bridge.call("SetTrigger", { accelerator }, this, [this](const QVariantList &reply) {
        m_isTaken = m_isWatching && !reply.value(0).toBool();
        Q_EMIT routeChanged();
    });
}

void ShellTrigger::passOn()
{
    if (std::exchange(m_isKept, false))
        awaitRelease();
}

/// A key that is down cannot be pressed, and nobody tells when the one that was kept is up. But it
/// is down as long as the user does nothing else, and the compositor knows for how long. What a
/// held key repeats counts as something (GNOME 48).
void ShellTrigger::awaitRelease()
{
    const BusObject monitor { u"org.gnome.Mutter.IdleMonitor"_s,
                              u"/org/gnome/Mutter/IdleMonitor/Core"_s,
                              u"org.gnome.Mutter.IdleMonitor"_s };
    monitor.call("GetIdletime", {}, this, [this](const QVariantList &reply) {
        const qint64 sincePress = m_sincePress.elapsed();
        const qint64 idle = reply.value(0).toLongLong();
        const bool isDown = idle + deliveryTime >= sincePress || idle < maxRepeatInterval;
        if (isDown && sincePress < maxPressTime)
            QTimer::singleShot(untilNextLook, this, &ShellTrigger::awaitRelease);
        else
            m_keys.whenReady().then(this, [this] { pressForApplication(); });
    });
}

/// The keys come back from the compositor's thread for input, which takes a moment.
void ShellTrigger::pressForApplication()
{
    m_bridge.send("SetTrigger", { QString() });
    if (const auto key = KeyCodes::scanCodeFromVirtual(m_chord.keyCode))
        m_keys.press(*key, m_chord.modifiers);
    QTimer::singleShot(untilPressed, this, &ShellTrigger::assign);
}

}
