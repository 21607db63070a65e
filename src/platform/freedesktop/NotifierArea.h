// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/StatusArea.h"

namespace Tessel {

/// A StatusNotifierItem host on the session bus.
class NotifierArea : public StatusArea
{
    Q_OBJECT

public:
    using StatusArea::StatusArea;

    void start(); ///< needs the application object
    void ask() final;

protected:
    /// Whether there was a host when it was last asked for.
    [[nodiscard]] bool hasHost() const { return m_hasHost; }

private Q_SLOTS:
    void askHost();

private:
    /// Whether something else shows items where there is no host.
    [[nodiscard]] virtual bool hasOtherTray() const { return false; }
    void handleAnswer(bool hasHost);

    bool m_hasHost = false;
};

}
