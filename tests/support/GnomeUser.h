// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "support/User.h"

#include <QDBusConnection>

namespace Tessel::Desktop {

// The keyboard and mouse of a GNOME Shell, as its remote desktop has them.
class GnomeUser final : public User
{
public:
    // The shell's session bus.
    explicit GnomeUser(const QDBusConnection &bus);

    [[nodiscard]] bool isConnected() const override { return m_isStarted; }

    void movePointer(const QPoint &position) override;
    void scroll(int steps) override;

protected:
    void setKey(quint32 key, bool isDown) override;
    void setLeftButton(bool isDown) override;
    void sync() override { } // every call is answered when the shell has it

private:
    bool notify(const QString &method, const QVariantList &arguments);
    void movePointerBy(const QPoint &distance);

    QDBusConnection m_bus;
    QString m_path;
    QPoint m_position;
    bool m_isStarted = false;
};

}
