// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "support/User.h"

namespace Tessel::Desktop {

void User::press(quint32 key)
{
    setKey(key, true);
    sync();
}

void User::release(quint32 key)
{
    setKey(key, false);
    sync();
}

void User::tap(quint32 key, const QList<quint32> &held)
{
    QList<quint32> keys = held + QList<quint32> { key };
    for (const auto each : std::as_const(keys))
        setKey(each, true);
    while (!keys.isEmpty())
        setKey(keys.takeLast(), false);
    sync();
}

void User::click(const QPoint &position, int count)
{
    movePointer(position);
    for (int change = 0; change < 2 * count; ++change)
        setLeftButton(change % 2 == 0);
    sync();
}

}
