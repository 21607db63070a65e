// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "actions/Pattern.h"

#include "actions/RequiredLiteral.h"

#include <QElapsedTimer>
#include <QTest>

using namespace Tessel;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

static constexpr qsizetype mebi = 1 << 20;

class tst_Pattern : public QObject
{
    Q_OBJECT

    static std::optional<QString> match(const QString &expression, const QString &text)
    {
        MatchBudget budget(10s, 10s);
        return Pattern(expression).firstMatch(text, budget);
    }

private Q_SLOTS:
    void matches_data()
    {
        QTest::addColumn<QString>("expression");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("expected"); // null: no match
        const auto row
            = [](const char *name, const char *expression, const char *text, const char *expected) {
                  QTest::newRow(name) << QString::fromUtf8(expression) << QString::fromUtf8(text)
                                      << QString::fromUtf8(expected);
              };
        row("number in a sentence", "\\d+", "Order 4711 of 12", "4711");
        row("only the matched part", "^https?://", "https://example.org/a", "https://");
        row("case ignored", "(?i)FÖX", "a föx jumps", "föx");
        row("dot stops at the line's end", "a.*", "xab\ncd", "ab");
        row("caret is the text's start", "^b", "a\nb", nullptr);
        row("empty match", "x*", "abc", "");
        row("empty text", "^$", "", "");
        row("invalid", "(", "(", nullptr);
        row("Unicode property", "\\p{Script=Hangul}+", "일정 추가", "일정");
        row("beyond the BMP", "[😀-😂]b", "a😁b", "😁b");
        row("literal missing", "item-\\d+", "4711", nullptr);
        row("optional literal missing", "(?:item-)?\\d+", "4711", "4711");
    }

    void matches()
    {
        QFETCH(QString, expression);
        QFETCH(QString, text);
        QFETCH(QString, expected);
        const std::optional<QString> found = match(expression, text);
        QCOMPARE(found.has_value(), !expected.isNull());
        QCOMPARE(found.value_or(QString()), expected);
    }

    void givesUpInTime_data()
    {
        QTest::addColumn<QString>("expression");
        for (const char *expression :
             { "(a+)+$", "(a+)+[!]", "[a-z0-9._%+-]+[@][a-z0-9.-]+\\.[a-z]{2,}",
               "(?i)[A-Z0-9._%+-]+@[A-Z0-9.-]+\\.[A-Z]{2,}", "(?<=b{1,900}a{1,900})[!]" })
            QTest::newRow(expression) << QString::fromLatin1(expression);
    }

    void givesUpInTime()
    {
        QFETCH(QString, expression);
        const QString text(mebi, u'a');
        MatchBudget budget(100ms, 300ms);
        QElapsedTimer timer;
        timer.start();
        QVERIFY(!Pattern(expression).firstMatch(text, budget));
        QVERIFY2(timer.elapsed() < 1000, qPrintable(QString::number(timer.elapsed())));
    }

    void sharesTheBudget()
    {
        const QString text(mebi, u'a');
        const Pattern slow(u"[^!]*[!]"_s);
        const Pattern quick(u"aa"_s);
        MatchBudget budget(20ms, 60ms);
        QCOMPARE(quick.firstMatch(text, budget), std::optional(u"aa"_s));
        QElapsedTimer timer;
        timer.start();
        for (int i = 0; i < 1000; ++i)
            QVERIFY(!slow.firstMatch(text, budget));
        QVERIFY2(timer.elapsed() < 1000, qPrintable(QString::number(timer.elapsed())));
        QVERIFY(!quick.firstMatch(text, budget));
        MatchBudget next;
        QVERIFY(quick.firstMatch(text, next));
    }

    void findsInLongText()
    {
        const QString text = u"The quick brown fox jumps over the lazy dog. "_s.repeated(mebi / 45)
            + u"someone@example.org https://example.org/4711 the end"_s;
        QCOMPARE(match(u"\\d{4}"_s, text), std::optional(u"4711"_s));
        QCOMPARE(match(u"[a-z0-9._%+-]+@[a-z0-9.-]+\\.[a-z]{2,}"_s, text),
                 std::optional(u"someone@example.org"_s));
        QCOMPARE(match(u"\\w+$"_s, text), std::optional(u"end"_s));
    }

    /// More patterns than are kept compiled, in copies, again, and again after some were released.
    void manyPatterns()
    {
        const QString text = u"12345678901234567890!"_s;
        QList<Pattern> patterns;
        for (int i = 0; i < 500; ++i)
            patterns.append(Pattern(u"[0-9]{%1}!"_s.arg(i % 20 + 1)));
        for (const qsizetype released : { 0, 100, 300 }) {
            patterns.remove(0, released);
            MatchBudget budget(10s, 10s);
            for (qsizetype i = 0; i < patterns.size(); ++i) {
                const Pattern copy = patterns[i];
                QCOMPARE(*copy.firstMatch(text, budget), text.last(i % 20 + 2));
            }
        }
    }

    void literals_data()
    {
        QTest::addColumn<QString>("expression");
        QTest::addColumn<QString>("expected");
        const auto row = [](const char *expression, const char *expected) {
            QTest::newRow(expression)
                << QString::fromUtf8(expression) << QString::fromUtf8(expected);
        };
        row("^item-\\d+$", "item-");
        row("\\bkey17\\b", "key17");
        row("ab(cde|f)*gh", "ab");
        row("ab[cdefg]hij", "hij");
        row("[^a\\]\\w]cd", "cd");
        row("abc?", "ab");
        row("abc{0,2}d", "ab");
        row("abc+d", "abc");
        row("a😀?b", "a");
        row("a\\.example\\.org", "example");
        row("(?<=#)tag(?!s)", "tag");
        row("cat|dog", "");
        row("(?i)word", "");
        row("a(?x)b c", "");
        row("\\Qa.b\\E", "");
        row("\\x61bc", "");
        row("[[ab]c]def", "");
        row("a)b", "");
        row("[ab", "");
        row("\\", "");
    }

    void literals()
    {
        QFETCH(QString, expression);
        QTEST(requiredLiteral(expression).toString(), "expected");
    }
};

QTEST_APPLESS_MAIN(tst_Pattern)
#include "tst_Pattern.moc"
