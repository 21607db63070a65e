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
    [[nodiscard]] bool isAvailable() const override { return m_hasHost; }

private:
    bool m_hasHost = false;
};

}
