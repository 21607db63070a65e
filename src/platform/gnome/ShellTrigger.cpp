// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/gnome/ShellTrigger.h"

#include "base/KeyCodes.h"
#include "platform/gnome/ShellBridge.h"
#include "platform/gnome/ShellInterface.h"

#include <utility>

namespace Tessel {

ShellTrigger::ShellTrigger(const ShellBridge &bridge)
    : m_bridge(bridge)
{
    connect(&bridge, &ShellBridge::attached, this, &ShellTrigger::assign);
    connect(&bridge, &ShellBridge::detached, this, &WaylandTrigger::routeChanged);
    connect(&bridge, &ShellBridge::triggered, this, [this] {
        m_isKept = true;
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
        m_isTaken = !reply.value(0).toBool();
        Q_EMIT routeChanged();
    });
}

void ShellTrigger::passOn()
{
    const auto key = KeyCodes::scanCodeFromVirtual(m_chord.keyCode);
    if (std::exchange(m_isKept, false) && key)
        m_bridge.send("PassTriggerOn", { ShellInterface::keysOf(*key, m_chord.modifiers) });
}

}
