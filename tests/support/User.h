// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QPoint>

namespace Tessel::Desktop {

// A user's hands at the keyboard and mouse of a Wayland compositor. Keys are Linux input event
// codes (linux/input-event-codes.h), so what they give depends on the compositor's layout.
// Positions are pixels.
class User
{
public:
    User() = default;
    virtual ~User() = default;
    Q_DISABLE_COPY_MOVE(User)

    [[nodiscard]] virtual bool isConnected() const = 0;

    void press(quint32 key);
    void release(quint32 key);
    void tap(quint32 key, const QList<quint32> &held = {});

    // A scroll step is one click of the wheel, positive towards the user.
    virtual void movePointer(const QPoint &position) = 0;
    void click(const QPoint &position, int count = 1);
    virtual void scroll(int steps) = 0;

protected:
    virtual void setKey(quint32 key, bool isDown) = 0;
    virtual void setLeftButton(bool isDown) = 0;
    // Returns when the compositor has what was done so far.
    virtual void sync() = 0;
};

}
