// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "base/TextRules.h"

#include <QFile>
#include <QTest>

using namespace Tessel;
using namespace Qt::StringLiterals;

class tst_TextRules : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lineEnds()
    {
        QCOMPARE(withNormalizedLineEnds(u"a\r\nb\rc\nd\r\r\n\n\r"_s), u"a\nb\nc\nd\n\n\n\n"_s);
        QCOMPARE(withNormalizedLineEnds(u"\u2028\u0085\v"_s), u"\u2028\u0085\v"_s);
    }

    void characters()
    {
        for (const auto &[text, count] : {
                 std::pair { u""_s, 0 },
                 { u"hello, “world”—…"_s, 16 },
                 { u"a\r\nb\r\r\n\n"_s, 6 },
                 { u"👨‍👩‍👧‍👦a👍🏽1️⃣🇰🇷🇫"_s, 6 },
                 { u"한국어\u1112\u1161\u11ab"_s, 4 },
                 { u"漢字，葛\U000E0100城"_s, 5 },
                 { u"\u0301é\u0323й\u0483"_s, 3 },
                 { QString(QChar(0xD83D)) + u"a𝒳𠀀"_s, 4 },
             })
            QCOMPARE(characterCount(text), qsizetype(count));
    }

    /// The Unicode Character Database's own test of cluster boundaries ("÷ 0061 × 0308 ÷ 0020 ÷").
    void charactersOfTheUnicodeTest()
    {
        QFile file(u"/usr/share/unicode/auxiliary/GraphemeBreakTest.txt"_s);
        QVERIFY2(file.open(QIODevice::ReadOnly), "install unicode-data");
        int cases = 0;
        for (const QByteArray &line : file.readAll().split('\n')) {
            const QString rule = QString::fromUtf8(line).section(u'#', 0, 0).trimmed();
            if (rule.isEmpty())
                continue;
            QString text;
            for (const QString &part : rule.split(u' ', Qt::SkipEmptyParts)) {
                bool isCodePoint = false;
                const char32_t codePoint = part.toUInt(&isCodePoint, 16);
                if (isCodePoint)
                    text += QString::fromUcs4(&codePoint, 1);
            }
            QVERIFY2(characterCount(text) == rule.count(u'÷') - 1, qPrintable(rule));
            ++cases;
        }
        QVERIFY(cases > 500);
    }
};

QTEST_APPLESS_MAIN(tst_TextRules)
#include "tst_TextRules.moc"
