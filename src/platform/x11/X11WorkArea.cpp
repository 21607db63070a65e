// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/x11/X11WorkArea.h"

#include <algorithm>

namespace Tessel {

namespace {

bool overlaps(int start, int length, int otherStart, int otherEnd)
{
    return otherStart < start + length && otherEnd >= start;
}

}

X11Strut x11Strut(const std::array<quint32, 12> &items)
{
    constexpr quint32 farthest = 0x7fff; // of the core protocol's coordinates
    std::array<int, 12> place {};
    std::transform(items.begin(), items.end(), place.begin(),
                   [=](quint32 item) { return int(std::min(item, farthest)); });
    return { place[0], place[1], place[2], place[3], place[4],  place[5],
             place[6], place[7], place[8], place[9], place[10], place[11] };
}

QRect x11WorkArea(const QRect &screen, QSize desktop, const QList<X11Strut> &struts)
{
    QRect area = screen;
    for (const X11Strut &strut : struts) {
        QMargins reserved;
        if (strut.left > screen.x()
            && overlaps(screen.y(), screen.height(), strut.leftStart, strut.leftEnd))
            reserved.setLeft(strut.left - area.x());
        if (desktop.width() - strut.right < screen.x() + screen.width()
            && overlaps(screen.y(), screen.height(), strut.rightStart, strut.rightEnd))
            reserved.setRight(area.x() + area.width() - (desktop.width() - strut.right));
        if (strut.top > screen.y()
            && overlaps(screen.x(), screen.width(), strut.topStart, strut.topEnd))
            reserved.setTop(strut.top - area.y());
        if (desktop.height() - strut.bottom < screen.y() + screen.height()
            && overlaps(screen.x(), screen.width(), strut.bottomStart, strut.bottomEnd))
            reserved.setBottom(area.y() + area.height() - (desktop.height() - strut.bottom));

        const QRect rest
            = area.marginsRemoved({ qMax(0, reserved.left()), qMax(0, reserved.top()),
                                    qMax(0, reserved.right()), qMax(0, reserved.bottom()) });
        if (rest.isValid())
            area = rest;
    }
    return area;
}

}
