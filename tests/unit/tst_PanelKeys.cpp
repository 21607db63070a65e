// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "bar/PanelKeys.h"
#include "base/KeyCodes.h"

#include <QTest>

using namespace Tessel;
using namespace Qt::StringLiterals;
using Kind = PanelKeyDecision::Kind;

class tst_PanelKeys : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void decide_data()
    {
        QTest::addColumn<qint64>("keyCode");
        QTest::addColumn<QString>("characters");
        QTest::addColumn<bool>("isCommand");
        QTest::addColumn<bool>("enabled");
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("button");

        constexpr qint64 keyQ = 12, key1 = 18, keyH = 4, keyPad5 = 87;
        const auto row = [](const char *name, qint64 code, const QString &characters, bool command,
                            bool enabled, Kind kind, int button = -1) {
            QTest::newRow(name) << code << characters << command << enabled << int(kind) << button;
        };
        row("digit", key1, u"1"_s, false, true, Kind::pick, 0);
        row("upper case", keyQ, u"Q"_s, false, true, Kind::pick, 5);
        row("keypad", keyPad5, u"5"_s, false, true, Kind::pick, 4);
        row("Cyrillic layout", keyQ, u"й"_s, false, true, Kind::pick, 5);
        row("AZERTY digit", key1, u"&"_s, false, true, Kind::pick, 0);
        row("AZERTY A where Q stands", keyQ, u"a"_s, false, true, Kind::pick, 10);
        row("no action's key", keyH, u"h"_s, false, true, Kind::ignore);
        row("disabled", key1, u"1"_s, false, false, Kind::ignore);
        row("Escape while disabled", KeyCodes::keyEscape, u"\x1b"_s, false, false, Kind::hide);
        row("settings", KeyCodes::keyComma, u","_s, true, true, Kind::openSettings);
        row("comma alone", KeyCodes::keyComma, u","_s, false, true, Kind::ignore);
    }

    void decide()
    {
        QFETCH(qint64, keyCode);
        QFETCH(QString, characters);
        QFETCH(bool, isCommand);
        QFETCH(bool, enabled);
        QFETCH(int, kind);
        QFETCH(int, button);
        const auto decision = decidePanelKey({ keyCode, characters, isCommand }, enabled);
        QCOMPARE(int(decision.kind), kind);
        QCOMPARE(decision.button, button);
    }
};

QTEST_APPLESS_MAIN(tst_PanelKeys)
#include "tst_PanelKeys.moc"
