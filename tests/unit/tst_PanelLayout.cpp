// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "bar/PanelLayout.h"

#include <QTest>

using namespace Tessel;

class tst_PanelLayout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void arranges()
    {
        const PanelLayout::Layout layout = PanelLayout::arrange({ 38, 38, 80, 38, 38, 38, 38 });
        // Rows of 5 and 2: 38 + 2 + 38 + 2 + 80 + 2 + 38 + 2 + 38 wide, 38 + 2 + 38 high.
        QCOMPARE(layout.window, QSize(240 + 24 + 40, 78 + 16 + 40));
        QCOMPARE(layout.bar, QRect(22, 20, 12 + 240 + 8, 8 + 78 + 8));
        QCOMPARE(layout.buttons.size(), 7);
        QCOMPARE(layout.buttons[0], QRect(34, 28, 38, 38));
        QCOMPARE(layout.buttons[3], QRect(34 + 162, 28, 38, 38));
        QCOMPARE(layout.buttons[5], QRect(34, 68, 38, 38));
        QCOMPARE(layout.buttons[6], QRect(74, 68, 38, 38));
    }

    void arrangesAnyNumber()
    {
        for (const auto &[buttons, window] : { std::pair { 0, QSize(64, 56) },
                                               { 1, QSize(102, 94) },
                                               { 5, QSize(262, 94) },
                                               { 6, QSize(262, 134) },
                                               { 21, QSize(262, 254) } }) {
            const PanelLayout::Layout layout = PanelLayout::arrange(QList<int>(buttons, 38));
            QCOMPARE(layout.window, window);
            QCOMPARE(layout.buttons.size(), buttons);
            for (const QRect &button : layout.buttons)
                QVERIFY(layout.bar.contains(button, true));
        }
    }

    void places_data()
    {
        QTest::addColumn<QPoint>("pointer");
        QTest::addColumn<QRect>("screen"); // null: none known
        QTest::addColumn<QPoint>("corner");
        // The window is 262 x 94: its margin ends 20 below the bar, which is 10 above the pointer.
        const QRect screen(0, 30, 1920, 1050);
        QTest::newRow("centred above") << QPoint(960, 540) << screen << QPoint(829, 456);
        QTest::newRow("no screen") << QPoint(5, 5) << QRect() << QPoint(-126, -79);
        QTest::newRow("left, just free") << QPoint(111, 540) << screen << QPoint(-20, 456);
        QTest::newRow("left, one further") << QPoint(112, 540) << screen << QPoint(-19, 456);
        QTest::newRow("right, just free") << QPoint(1809, 540) << screen << QPoint(1678, 456);
        QTest::newRow("top, just above") << QPoint(960, 144) << screen << QPoint(829, 60);
        QTest::newRow("top, flipped") << QPoint(960, 143) << screen << QPoint(829, 173);
        QTest::newRow("bottom is not clamped") << QPoint(960, 2000) << screen << QPoint(829, 1916);
        QTest::newRow("flipped over the bottom")
            << QPoint(500, 90) << QRect(0, 0, 1000, 100) << QPoint(369, 120);
        QTest::newRow("pointer on a screen to the right")
            << QPoint(2500, 540) << screen << QPoint(1678, 456);
        QTest::newRow("top of a screen above the origin")
            << QPoint(-960, -970) << QRect(-1920, -1080, 1920, 1080) << QPoint(-1091, -940);
        QTest::newRow("wider than the screen")
            << QPoint(50, 500) << QRect(0, 0, 200, 800) << QPoint(-42, 416);
    }

    void places()
    {
        QFETCH(QPoint, pointer);
        QFETCH(QRect, screen);
        QFETCH(QPoint, corner);
        const auto frame = screen.isNull() ? std::nullopt : std::optional(screen);
        QCOMPARE(PanelLayout::place(pointer, QSize(262, 94), frame), corner);
    }

    void shortcuts()
    {
        QCOMPARE(PanelLayout::shortcutCharacter(20), '\0');
        QCOMPARE(PanelLayout::shortcutCharacter(-1), '\0');
        QByteArray keys;
        for (int button = 0; button < 20; ++button) {
            keys += PanelLayout::shortcutCharacter(button);
            QCOMPARE(PanelLayout::buttonForCharacter(QLatin1Char(keys.back())), button);
        }
        QVERIFY(keys.startsWith("12345Q") && keys.endsWith('B'));
        for (const QChar other : { u'6', u'q', u'\0', u'ㅂ' })
            QVERIFY(!PanelLayout::buttonForCharacter(other));
    }
};

QTEST_APPLESS_MAIN(tst_PanelLayout)
#include "tst_PanelLayout.moc"
