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
        QSet<quint32> scanCodes;
        for (qint64 code = 0; code < 127; ++code) {
            const QSet<qint64> gaps { 52, 66, 68, 70, 77, 108, 112 };
            const std::optional<quint32> scanCode = KeyCodes::scanCodeFromVirtual(code);
            QCOMPARE(scanCode.has_value(), !gaps.contains(code));
            if (!scanCode)
                continue;
            QVERIFY2(!scanCodes.contains(*scanCode), qPrintable(QString::number(code)));
            scanCodes.insert(*scanCode);
            QCOMPARE(KeyCodes::virtualFromScanCode(*scanCode), std::optional(code));
        }
    }

    void otherKeys()
    {
        QCOMPARE(KeyCodes::virtualFromScanCode(KEY_INSERT + 8), qint64(114)); // with Help
        for (const int evdevCode : { KEY_F21, KEY_BRIGHTNESSUP, KEY_RESERVED, -8 })
            QVERIFY(!KeyCodes::virtualFromScanCode(quint32(evdevCode + 8)));
        QVERIFY(!KeyCodes::ansiCharacter(87)); // keypad
    }

    void keysThatDoNothingToATextAlone()
    {
        QList<int> without;
        for (int evdevCode = 0; evdevCode < 248; ++evdevCode) {
            const auto scanCode = quint32(evdevCode + 8);
            if (KeyCodes::isModifierOrLock(scanCode) || KeyCodes::isMediaKey(scanCode))
                without += evdevCode;
        }
        for (const int evdevCode : { KEY_RIGHTALT, KEY_CAPSLOCK, KEY_NUMLOCK, KEY_SCROLLLOCK,
                                     KEY_VOLUMEUP, KEY_BRIGHTNESSDOWN, KEY_NEXTSONG })
            QVERIFY2(without.contains(evdevCode), qPrintable(QString::number(evdevCode)));
        for (const int evdevCode : { KEY_F14, KEY_PAUSE, KEY_BACK, KEY_102ND })
            QVERIFY2(!without.contains(evdevCode), qPrintable(QString::number(evdevCode)));
        for (const quint32 keysym : { 0xfe03U, 0xfe11U, 0xff7eU, 0xffeeU }) // of a layout's own
            QVERIFY2(KeyCodes::isModifierOrLockSymbol(keysym), qPrintable(QString::number(keysym)));
        QVERIFY(!KeyCodes::isModifierOrLockSymbol('a')
                && !KeyCodes::isModifierOrLockSymbol(0xffff));
    }
};

QTEST_APPLESS_MAIN(tst_KeyCodes)
#include "tst_KeyCodes.moc"
