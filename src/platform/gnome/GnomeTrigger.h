// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/gnome/ShellTrigger.h"

#include <memory>

namespace Tessel {

class BareDesktop;
class PortalShortcuts;

/// The trigger by the shell's extension. Without that by the desktop's portal, which asks the user,
/// and in X11's windows by a key of our own.
class GnomeTrigger final : public WaylandTrigger
{
    Q_OBJECT

public:
    GnomeTrigger(const ShellBridge &bridge, ShellKeys &keys, const BareDesktop &bare);
    ~GnomeTrigger() override;

    void set(const KeyChord &chord) override;
    void setWatching(bool isWatching) override;
    [[nodiscard]] TriggerRoute route() const override;
    [[nodiscard]] QString binding() const override;
    void passOn() override;

private:
    void update();
    void setBare();

    const BareDesktop &m_bare;
    ShellTrigger m_shell;
    std::unique_ptr<PortalShortcuts> m_portal; ///< while the desktop is bare
    KeyChord m_chord;
    bool m_isWatching = true;
};

}
