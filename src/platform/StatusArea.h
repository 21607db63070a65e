// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <optional>

namespace Tessel {

/// The place where resident programs show an item of their own: a tray, a menu bar.
class StatusArea : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Asks whether there is one, without waiting: becameAvailable() is the answer, which may never
    /// come.
    virtual void ask() = 0;

    /// The colour, as 0xRRGGBB, in which it wants items to be drawn, where it says so.
    [[nodiscard]] virtual std::optional<quint32> itemColor() const { return {}; }

Q_SIGNALS:
    /// It answers now. An item is to be made at once or after asking again: Qt waits for the place
    /// meanwhile.
    void becameAvailable();
    void itemColorChanged();
};

}
