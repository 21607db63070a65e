// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

namespace Tessel {

/// Whether the user prefers dark or light windows.
class Appearance : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    [[nodiscard]] virtual bool isDark() const = 0;

Q_SIGNALS:
    void changed();
};

}
