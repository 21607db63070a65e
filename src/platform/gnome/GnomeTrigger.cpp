// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/gnome/GnomeTrigger.h"

#include "platform/gnome/BareDesktop.h"
#include "platform/wayland/KeyBinding.h"
#include "platform/wayland/PortalShortcuts.h"

namespace Tessel {

GnomeTrigger::GnomeTrigger(const ShellBridge &bridge, ShellKeys &keys, const BareDesktop &bare)
    : m_bare(bare)
    , m_shell(bridge, keys)
{
    connect(&m_shell, &WaylandTrigger::pressed, this, &WaylandTrigger::pressed);
    connect(&m_shell, &WaylandTrigger::routeChanged, this, &WaylandTrigger::routeChanged);
    connect(&bare, &BareDesktop::changed, this, &GnomeTrigger::update);
}

GnomeTrigger::~GnomeTrigger() = default;

void GnomeTrigger::update()
{
    if (!m_bare.isBare()) {
        m_portal.reset();
    } else if (!m_portal) {
        m_portal = std::make_unique<PortalShortcuts>();
        m_portal->setWatching(m_isWatching);
        connect(m_portal.get(), &WaylandTrigger::pressed, this, &WaylandTrigger::pressed);
        connect(m_portal.get(), &WaylandTrigger::routeChanged, this, &WaylandTrigger::routeChanged);
    }
    setBare();
    Q_EMIT routeChanged();
}

void GnomeTrigger::set(const KeyChord &chord)
{
    m_chord = chord;
    m_shell.set(chord);
    setBare();
}

void GnomeTrigger::setBare()
{
    if (m_portal)
        m_portal->set(m_chord);
    if (Platform *x11 = m_bare.x11())
        x11->eventMonitor().setTrigger(m_chord);
}

/// X11's monitor looks at our windows itself.
void GnomeTrigger::setWatching(bool isWatching)
{
    m_isWatching = isWatching;
    m_shell.setWatching(isWatching);
    if (m_portal)
        m_portal->setWatching(isWatching);
}

TriggerRoute GnomeTrigger::route() const
{
    return m_portal ? m_portal->route() : m_shell.route();
}

QString GnomeTrigger::binding() const
{
    return m_portal ? KeyBinding::inGnome(m_chord) : QString();
}

void GnomeTrigger::passOn()
{
    m_shell.passOn();
    if (Platform *x11 = m_bare.x11())
        x11->eventMonitor().passTriggerOn();
}

}
