// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "tr/CaseFilter.h"

#include <QByteArray>
#include <QTest>

using namespace Tessel;

class tst_CaseFilter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void maps_data()
    {
        QTest::addColumn<bool>("upper");
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QByteArray>("expected");
        const auto row = [](const char *name, bool upper, const char *text, const char *expected) {
            QTest::newRow(name) << upper << QByteArray(text) << QByteArray(expected);
        };
        row("scripts", true, "Hello 1\né ж ά 한글 🙂\n", "HELLO 1\nÉ Ж Ά 한글 🙂\n");
        row("longer", true, "straße ﬃ ΐ", "STRASSE FFI \u0399\u0308\u0301");
        row("no Turkish", true, "iı", "II");
        row("lower", false, "ÀЖΑΣ ΣΑ.\nİ", "àжας σα.\ni̇");
        row("not UTF-8", true,
            "z\xff"
            "y\xc3(\xed\xa0\x80x\xe2\x82",
            "Z\xff"
            "Y\xc3(\xed\xa0\x80X\xe2\x82");
    }

    /// The same whether the bytes come all at once or one by one.
    void maps()
    {
        QFETCH(bool, upper);
        QFETCH(QByteArray, text);
        QFETCH(QByteArray, expected);
        for (const qsizetype step : { text.size() + 1, qsizetype(1) }) {
            CaseFilter filter(upper ? CaseFilter::Case::upper : CaseFilter::Case::lower);
            std::string result;
            for (qsizetype at = 0; at < text.size(); at += step)
                result += filter.feed(text.mid(at, step).toStdString());
            result += filter.finish();
            QCOMPARE(QByteArray::fromStdString(result), expected);
        }
    }

    void longLine()
    {
        CaseFilter filter(CaseFilter::Case::upper);
        const QByteArray text = QByteArray("xé").repeated(100'000);
        std::string result;
        for (qsizetype at = 0; at < text.size(); at += 65'536)
            result += filter.feed(text.mid(at, 65'536).toStdString());
        QVERIFY(result.size() > 100'000); // long lines do not pile up
        result += filter.finish();
        QVERIFY(QByteArray::fromStdString(result) == QByteArray("XÉ").repeated(100'000));
    }
};

QTEST_APPLESS_MAIN(tst_CaseFilter)
#include "tst_CaseFilter.moc"
