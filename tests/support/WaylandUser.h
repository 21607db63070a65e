// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "support/User.h"

#include <QSize>
#include <QString>

#include <memory>

namespace Tessel::Desktop {

// The keyboard and mouse of a compositor of the wlroots family, which hands them on to the one that
// is nested in it: there both count as real ones.
class WaylandUser final : public User
{
public:
    // The socket's full path, and the size of the only output.
    WaylandUser(const QString &socket, const QSize &size);
    ~WaylandUser() override;
    Q_DISABLE_COPY_MOVE(WaylandUser)

    [[nodiscard]] bool isConnected() const override;

    void movePointer(const QPoint &position) override;
    void scroll(int steps) override;

protected:
    void setKey(quint32 key, bool isDown) override;
    void setLeftButton(bool isDown) override;
    void sync() override;

private:
    class Private;
    std::unique_ptr<Private> d;
};

}
