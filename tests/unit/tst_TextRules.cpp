// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "base/TextRules.h"

#include <QFile>
#include <QTest>

using namespace Tessel;

class tst_TextRules : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lineEnds_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("expected");
        QTest::newRow("pair and lone")
            << QStringLiteral("a\r\nb\rc\nd") << QStringLiteral("a\nb\nc\nd");
        QTest::newRow("two returns and a feed")
            << QStringLiteral("\r\r\n") << QStringLiteral("\n\n");
        QTest::newRow("feed and return") << QStringLiteral("\n\r") << QStringLiteral("\n\n");
        QTest::newRow("other separators stay")
            << QStringLiteral("\u2028\u0085\v") << QStringLiteral("\u2028\u0085\v");
    }

    void lineEnds()
    {
        QFETCH(QString, text);
        QTEST(withNormalizedLineEnds(text), "expected");
    }

    void characters_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("expected");
        QTest::newRow("empty") << QString() << 0;
        QTest::newRow("Latin") << QStringLiteral("hello world") << 11;
        QTest::newRow("CR LF") << QStringLiteral("a\r\nb") << 3;
        QTest::newRow("CR CR LF LF") << QStringLiteral("\r\r\n\n") << 3;
        QTest::newRow("LF CR") << QStringLiteral("\n\r") << 2;
        QTest::newRow("family") << QStringLiteral("👨‍👩‍👧‍👦") << 1;
        QTest::newRow("skin tone among letters") << QStringLiteral("a👍🏽b") << 3;
        QTest::newRow("flags") << QStringLiteral("🇰🇷🇩🇪🇫") << 3;
        QTest::newRow("keycap") << QStringLiteral("a1️⃣b") << 3;
        QTest::newRow("accents on Latin") << QStringLiteral("e\u0301\u0323x\u0301") << 2;
        QTest::newRow("accent at the start") << QStringLiteral("\u0301a") << 2;
        QTest::newRow("accent after a break") << QStringLiteral("\n\u0301") << 2;
        QTest::newRow("joined copyright sign") << QStringLiteral("©\u200D®") << 1;
        QTest::newRow("Hangul syllables") << QStringLiteral("한국어") << 3;
        QTest::newRow("Hangul, decomposed") << QStringLiteral("\u1112\u1161\u11ab\u1100") << 2;
        QTest::newRow("Hangul, syllable and final") << QStringLiteral("가\u11a8가") << 2;
        QTest::newRow("ideographs") << QStringLiteral("漢字，かな") << 5;
        QTest::newRow("ideograph with variation") << QStringLiteral("葛\U000E0100城") << 2;
        QTest::newRow("Cyrillic with accent") << QStringLiteral("и\u0306й\u0483") << 2;
        QTest::newRow("quotes and dashes") << QStringLiteral("“it’s”—…") << 8;
        QTest::newRow("half a surrogate pair") << QString(QChar(0xD83D)) + u'a' << 2;
        QTest::newRow("beyond the BMP") << QStringLiteral("𝒳𠀀") << 2;
    }

    void characters()
    {
        QFETCH(QString, text);
        QFETCH(int, expected);
        QCOMPARE(characterCount(text), expected);
        QCOMPARE(characterCount(QStringLiteral("x ") + text),
                 expected + 2 - text.startsWith(u'\u0301'));
    }

    /// The Unicode Character Database's own test of cluster boundaries ("÷ 0061 × 0308 ÷ 0020 ÷").
    void charactersOfTheUnicodeTest()
    {
        QFile file(QStringLiteral("/usr/share/unicode/auxiliary/GraphemeBreakTest.txt"));
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
