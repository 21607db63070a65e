// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/wayland/WaylandPrimarySelection.h"

#include "platform/wayland/WaylandSelectionReader.h"
#include "platform/wayland/WaylandWindows.h"

#include <utility>

namespace Tessel {

WaylandPrimarySelection::WaylandPrimarySelection(const Services &services)
    : m_services(services)
    , m_activeWindow(activeWindow())
{
    connect(&services.selections, &WaylandSelections::changed, this,
            [this](WaylandSelections::Selection selection) {
                if (selection == WaylandSelections::Selection::primary)
                    takePrimary();
            });
    connect(&services.focus, &WaylandFocus::activeChanged, this,
            &WaylandPrimarySelection::takeActive);
}

quint64 WaylandPrimarySelection::activeWindow() const
{
    const auto window = m_services.focus.active();
    return window ? window->handle : 0;
}

void WaylandPrimarySelection::takePrimary()
{
    const auto &formats = m_services.selections.mimeTypes(WaylandSelections::Selection::primary);
    m_markedWindow = formats.isEmpty() ? 0 : activeWindow();
    m_isNewerThanFocus = m_markedWindow != 0;
}

void WaylandPrimarySelection::takeActive()
{
    // For a moment there may be none, as when a popup has the keyboard.
    const quint64 active = activeWindow();
    if (active && std::exchange(m_activeWindow, active) != active)
        m_isNewerThanFocus = false;
}

bool WaylandPrimarySelection::isMarkedIn(quint64 window) const
{
    return window && window == m_markedWindow;
}

QFuture<std::optional<QString>> WaylandPrimarySelection::text(std::chrono::milliseconds patience)
{
    return m_services.reader.read(WaylandSelections::Selection::primary, patience);
}

}
