// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

namespace Tessel {

/// The place where resident programs show an item of their own: a tray, a menu bar.
class StatusArea : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Whether there is one now.
    [[nodiscard]] virtual bool isAvailable() const = 0;

Q_SIGNALS:
    void becameAvailable();
};

}
