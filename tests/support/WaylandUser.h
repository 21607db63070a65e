// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QPoint>
#include <QSize>
#include <QString>

#include <memory>

namespace Tessel::Desktop {

// A user's hands at the keyboard and mouse of a compositor of the wlroots family, which hands them
// on to the one that is nested in it: there both count as real ones. Keys are Linux input event
// codes (linux/input-event-codes.h), so what they give depends on the nested compositor's layout.
// Positions are pixels.
class WaylandUser final
{
public:
    // The socket's full path, and the size of the only output.
    WaylandUser(const QString &socket, const QSize &size);
    ~WaylandUser();
    Q_DISABLE_COPY_MOVE(WaylandUser)

    [[nodiscard]] bool isConnected() const;

    void press(quint32 key);
    void release(quint32 key);
    void tap(quint32 key, const QList<quint32> &held = {});

    // A scroll step is one click of the wheel, positive towards the user.
    void movePointer(const QPoint &position);
    void click(const QPoint &position, int count = 1);
    void scroll(int steps);

private:
    class Private;
    std::unique_ptr<Private> d;
};

}
