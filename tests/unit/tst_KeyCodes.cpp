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

    void keys()
    {
        for (const auto &[evdevCode, virtualCode] : { std::pair { KEY_F2, KeyCodes::keyF2 },
                                                      { KEY_C, KeyCodes::keyC },
                                                      { KEY_COMMA, KeyCodes::keyComma },
                                                      { KEY_ESC, KeyCodes::keyEscape },
                                                      { KEY_KP5, qint64 { 87 } },
                                                      { KEY_INSERT, qint64 { 114 } } })
            QCOMPARE(KeyCodes::virtualFromScanCode(quint32(evdevCode + 8)), virtualCode);
        for (const int evdevCode : { KEY_F21, KEY_BRIGHTNESSUP, KEY_RESERVED, -8 })
            QVERIFY(!KeyCodes::virtualFromScanCode(quint32(evdevCode + 8)));
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
