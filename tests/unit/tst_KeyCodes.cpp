// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "base/KeyCodes.h"

#include <QSet>
#include <QTest>

#include <linux/input-event-codes.h>

using namespace Tessel;

class tst_KeyCodes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    /// Every key code that has a name in the interface can be pressed here and is told apart.
    void namedKeysGoBothWays()
    {
        QSet<int> evdevCodes;
        for (qint64 code = 0; code < 127; ++code) {
            const QSet<qint64> gaps { 52, 66, 68, 70, 77, 108, 112 };
            const std::optional<int> evdev = KeyCodes::evdevFromVirtual(code);
            QCOMPARE(evdev.has_value(), !gaps.contains(code));
            if (!evdev)
                continue;
            QVERIFY2(!evdevCodes.contains(*evdev), qPrintable(QString::number(code)));
            evdevCodes.insert(*evdev);
            QCOMPARE(KeyCodes::virtualFromEvdev(*evdev), std::optional(code));
        }
    }

    void keys_data()
    {
        QTest::addColumn<int>("evdevCode");
        QTest::addColumn<qint64>("virtualCode"); // -1: none
        const auto row = [](const char *name, int evdevCode, qint64 virtualCode) {
            QTest::newRow(name) << evdevCode << virtualCode;
        };
        row("F2", KEY_F2, KeyCodes::keyF2);
        row("C", KEY_C, KeyCodes::keyC);
        row("comma", KEY_COMMA, KeyCodes::keyComma);
        row("Escape", KEY_ESC, KeyCodes::keyEscape);
        row("6 comes before 5", KEY_6, 22);
        row("keypad 5 is not the digit", KEY_KP5, 87);
        row("ISO", KEY_102ND, 10);
        row("Enter of the keypad", KEY_KPENTER, 76);
        row("Insert", KEY_INSERT, 114);
        row("Print Screen", KEY_SYSRQ, 105);
        row("F15", KEY_F15, 113);
        row("F20", KEY_F20, 90);
        row("F21", KEY_F21, -1);
        row("brightness", KEY_BRIGHTNESSUP, -1);
        row("reserved", KEY_RESERVED, -1);
        row("negative", -8, -1);
    }

    void keys()
    {
        QFETCH(int, evdevCode);
        QFETCH(qint64, virtualCode);
        QCOMPARE(KeyCodes::virtualFromEvdev(evdevCode).value_or(-1), virtualCode);
    }

    void characters()
    {
        QByteArray letters;
        for (qint64 code = 0; code < 127; ++code) {
            if (const std::optional<char> character = KeyCodes::ansiCharacter(code))
                letters += *character;
        }
        QCOMPARE(letters, QByteArray("ASDFHGZXCVBQWERYT1234659780OUIPLJKNM"));
        QVERIFY(!KeyCodes::ansiCharacter(87)); // keypad
    }
};

QTEST_APPLESS_MAIN(tst_KeyCodes)
#include "tst_KeyCodes.moc"
