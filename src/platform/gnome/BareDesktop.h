// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/EventMonitor.h"
#include "platform/Platform.h"

namespace Tessel {

class ExtensionSetup;

/// What there is without the shell's extension: X11's services. By XWayland they reach its windows,
/// and the selections of all.
class BareDesktop final : public QObject
{
    Q_OBJECT

public:
    using Maker = std::function<Result<std::unique_ptr<Platform>>()>;
    using Deliver = std::function<void(const InputEvent &event)>;

    /// `makeX11`: called when they are needed for the first time. `deliver`: gets the events of
    /// X11's windows meanwhile.
    BareDesktop(const ExtensionSetup &setup, Maker makeX11, Deliver deliver);

    /// Certainly nothing better will serve us soon.
    [[nodiscard]] bool isBare() const;

    /// Null when the desktop is not bare, or has no X server.
    [[nodiscard]] Platform *x11() const;

Q_SIGNALS:
    void changed();

private:
    void update();

    const ExtensionSetup &m_setup;
    Maker m_makeX11;
    Deliver m_deliver;
    std::unique_ptr<Platform> m_x11; ///< stays when it has been made
    std::unique_ptr<EventMonitor::Subscription> m_events;
};

}
