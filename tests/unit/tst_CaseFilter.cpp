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
    /// The same whether the bytes come all at once or one by one.
    void maps()
    {
        const auto filtered = [](CaseFilter::Case to, const QByteArray &text, qsizetype step) {
            CaseFilter filter(to);
            std::string result;
            for (qsizetype at = 0; at < text.size(); at += step)
                result += filter.feed(text.mid(at, step).toStdString());
            return result + filter.finish();
        };
        using enum CaseFilter::Case;
        for (const qsizetype step : { 1, 1000 }) {
            QCOMPARE(filtered(upper, "Hello 1\né ж ά 한글 🙂\n", step),
                     std::string("HELLO 1\nÉ Ж Ά 한글 🙂\n"));
            QCOMPARE(filtered(upper, "straße ﬃ ΐ iı", step),
                     std::string("STRASSE FFI \u0399\u0308\u0301 II")); // longer; no Turkish
            QCOMPARE(filtered(lower, "ÀЖΑΣ ΣΑ.\nİ", step), std::string("àжας σα.\ni̇"));
            QCOMPARE(filtered(upper, "z\xffy\xc3(\xed\xa0\x80x\xe2\x82", step), // not UTF-8
                     std::string("Z\xffY\xc3(\xed\xa0\x80X\xe2\x82"));
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
