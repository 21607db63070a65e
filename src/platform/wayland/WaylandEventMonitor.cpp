// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/wayland/WaylandEventMonitor.h"

#include <QGuiApplication>
#include <QWindow>

namespace Tessel {

namespace {

/// Whether one of our own windows has the focus; a popup that takes keys has only those.
bool hasFocus()
{
    const QWindow *window = QGuiApplication::focusWindow();
    return window && !window->flags().testFlag(Qt::BypassWindowManagerHint);
}

}

WaylandEventMonitor::WaylandEventMonitor() = default;
WaylandEventMonitor::~WaylandEventMonitor() = default;

void WaylandEventMonitor::start(std::unique_ptr<WaylandTrigger> trigger)
{
    m_trigger = std::move(trigger);
    connect(m_trigger.get(), &WaylandTrigger::pressed, this, [this] {
        deliver({ InputEvent::Kind::keyDown, m_chord.keyCode, m_chord.modifiers });
    });
    connect(m_trigger.get(), &WaylandTrigger::routeChanged, this,
            &EventMonitor::triggerRouteChanged);
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [this](QWindow *window) {
        leaveKeysToOwnWindows();
        if (window) // Qt does not say that the focus goes with it
            connect(window, &QObject::destroyed, this, &WaylandEventMonitor::leaveKeysToOwnWindows,
                    Qt::UniqueConnection);
    });
}

void WaylandEventMonitor::leaveKeysToOwnWindows()
{
    m_trigger->setWatching(!hasFocus());
}

std::unique_ptr<EventMonitor::Subscription>
WaylandEventMonitor::addGlobalMonitor(InputEvent::Kinds kinds, Handler handler)
{
    return m_handlers.add(kinds, std::move(handler));
}

void WaylandEventMonitor::setTrigger(const KeyChord &chord)
{
    m_chord = chord;
    if (m_trigger)
        m_trigger->set(chord);
}

TriggerRoute WaylandEventMonitor::triggerRoute() const
{
    return m_trigger ? m_trigger->route() : TriggerRoute::unbound;
}

QString WaylandEventMonitor::triggerBinding() const
{
    return m_trigger ? m_trigger->binding() : QString();
}

void WaylandEventMonitor::passTriggerOn()
{
    if (m_trigger)
        m_trigger->passOn();
}

}
