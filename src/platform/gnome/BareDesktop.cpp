// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/gnome/BareDesktop.h"

#include "base/Log.h"
#include "platform/gnome/ExtensionSetup.h"

using namespace Qt::StringLiterals;

namespace Tessel {

BareDesktop::BareDesktop(const ExtensionSetup &setup, Maker makeX11, Deliver deliver)
    : m_setup(setup)
    , m_makeX11(std::move(makeX11))
    , m_deliver(std::move(deliver))
{
    connect(&setup, &ExtensionSetup::changed, this, &BareDesktop::update);
}

bool BareDesktop::isBare() const
{
    return m_setup.isMissing();
}

Platform *BareDesktop::x11() const
{
    return isBare() ? m_x11.get() : nullptr;
}

void BareDesktop::update()
{
    if (isBare() && m_makeX11) {
        if (auto made = std::exchange(m_makeX11, {})()) {
            m_x11 = *std::move(made);
            m_x11->start();
        } else {
            Log::print(u"WARNING: "_s + made.error().reason);
        }
    }
    m_events.reset();
    if (m_x11 && !isBare())
        m_x11->eventMonitor().setTrigger({}); // which is another's again
    else if (m_x11)
        m_events = m_x11->eventMonitor().addGlobalMonitor({ InputEvent::Kind::keyDown,
                                                            InputEvent::Kind::scrollWheel,
                                                            InputEvent::Kind::leftMouseUp },
                                                          m_deliver);
    Q_EMIT changed();
}

}
