// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/x11/X11WorkArea.h"

#include <QTest>

using namespace Tessel;

class tst_X11WorkArea : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void workArea()
    {
        const QRect left(0, 0, 1920, 1080);
        const QRect right(1920, 200, 1280, 720);
        const QSize desktop(3200, 1080);
        const X11Strut topOfLeft { .top = 30, .topStart = 0, .topEnd = 1919 };
        const X11Strut bottomOfRight { .bottom = 160 + 40, .bottomStart = 1920, .bottomEnd = 3199 };
        const X11Strut rightEdge { .right = 60, .rightStart = 0, .rightEnd = 1079 };
        const QList<X11Strut> all { topOfLeft, bottomOfRight, rightEdge };

        QCOMPARE(x11WorkArea(left, desktop, {}), left);
        QCOMPARE(x11WorkArea(left, desktop, all), QRect(0, 30, 1920, 1050));
        QCOMPARE(x11WorkArea(right, desktop, all), QRect(1920, 200, 1220, 680));

        // Two panels on one edge: the deeper one counts. One that takes all is ignored.
        const X11Strut deeper { .top = 50, .topStart = 100, .topEnd = 500 };
        const X11Strut everything { .top = 5000, .topStart = 0, .topEnd = 1919 };
        QCOMPARE(x11WorkArea(left, desktop, { topOfLeft, deeper, everything }),
                 QRect(0, 50, 1920, 1030));

        // Numbers that no screen has, such as "to the end" and -1.
        constexpr quint32 most = 0xffffffff;
        QCOMPARE(
            x11WorkArea(right, desktop,
                        { x11Strut({ 0, 0, 30 + 200, 0, 0, 0, 0, 0, 0, most, 0, 0 }),
                          x11Strut({ most, most, most, most, 0, most, 0, most, 0, most, 0, most }),
                          x11Strut({ 0, 0x80000000, 0, 0, 0, 0, 0, most, 0, 0, 0, 0 }) }),
            QRect(1920, 230, 1280, 690));
    }
};

QTEST_APPLESS_MAIN(tst_X11WorkArea)
#include "tst_X11WorkArea.moc"
