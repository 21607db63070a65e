// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QList>

namespace Tessel {

class X11Connection;

/// Keys pressed through the server's XTEST extension, which must be present.
class X11FakeKeys final
{
public:
    explicit X11FakeKeys(X11Connection &connection)
        : m_connection(connection)
    {
    }

    /// Releases the modifiers that the user holds, so that they do not join what is pressed next.
    /// They are not pressed again afterwards: nobody knows whether they are still held then, and
    /// one too many would be stuck.
    void liftHeldModifiers();

    void lift(const QList<quint8> &keys);

    /// Presses the keys (X keycodes) in this order and releases them in the opposite one.
    void press(const QList<quint8> &keys);

private:
    void send(quint8 type, quint8 key);

    X11Connection &m_connection;
};

}
