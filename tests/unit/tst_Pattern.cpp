// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "actions/Pattern.h"

#include "actions/RequiredLiteral.h"

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
    void matches()
    {
        for (const auto &[expression, text, expected] :
             { std::tuple { u"\\d+"_s, u"Order 4711 of 12"_s, u"4711"_s },
               { u"^https?://"_s, u"https://example.org/a"_s, u"https://"_s },
               { u"(?i)FÖX"_s, u"a föx jumps"_s, u"föx"_s },
               { u"x*"_s, u"abc"_s, u""_s },
               { u"[😀-😂]b"_s, u"a😁b"_s, u"😁b"_s },
               { u"(?:item-)?\\d+"_s, u"4711"_s, u"4711"_s } })
            QCOMPARE(match(expression, text), std::optional(expected));
        for (const auto &[expression, text] : { std::pair { u"^b"_s, u"a\nb"_s },
                                                { u"("_s, u"("_s },
                                                { u"item-\\d+"_s, u"4711"_s } })
            QVERIFY2(!match(expression, text), qUtf8Printable(expression));
    }

    /// No surrogate pair is parted where one piece of the text ends and the next begins.
    void longTexts()
    {
        const QString faces = u"😀"_s.repeated(5000);
        for (const QString &before : { u""_s, u"a"_s })
            QCOMPARE(match(u"([😀]|x)+(?=b(?<=😀b))"_s, before + faces + u'b'), std::optional(faces));
    }

    /// Some run through the text ten thousand times before ICU calls back, which would take
    /// minutes.
    void givesUpInTime()
    {
        const QString text(16 * mebi, u'a');
        for (const char *expression :
             { "(a+)+[!]", "[a-z0-9._%+-]+[@][a-z0-9.-]+\\.[a-z]{2,}", "(?<=b{1,900}a{1,900})[!]",
               "(?:(?>.*)[!]|.)*[!]", "(?:(?!.*).|.)*[!]", "(?i)(.*)\\1[!]" }) {
            MatchBudget budget(100ms, 300ms);
            QVERIFY2(!Pattern(QString::fromLatin1(expression)).firstMatch(text, budget),
                     expression);
        }
    }

    void sharesTheBudget()
    {
        const QString text(mebi, u'a');
        const Pattern slow(u"[^!]*[!]"_s);
        const Pattern quick(u"aa"_s);
        MatchBudget budget(20ms, 60ms);
        QCOMPARE(quick.firstMatch(text, budget), std::optional(u"aa"_s));
        for (int i = 0; i < 1000; ++i)
            QVERIFY(!slow.firstMatch(text, budget));
        QVERIFY(!quick.firstMatch(text, budget));
        MatchBudget next;
        QVERIFY(quick.firstMatch(text, next));
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

    void literals()
    {
        for (const auto &[expression, literal] : {
                 std::pair { u"^item-\\d+$"_s, u"item-"_s },
                 { u"\\bkey17\\b"_s, u"key17"_s },
                 { u"ab(cde|f)*gh"_s, u"ab"_s },
                 { u"ab[cdefg]hij"_s, u"hij"_s },
                 { u"[^a\\]\\w]cd"_s, u"cd"_s },
                 { u"abc?"_s, u"ab"_s },
                 { u"abc{0,2}d"_s, u"ab"_s },
                 { u"abc+d"_s, u"abc"_s },
                 { u"a😀?b"_s, u"a"_s },
                 { u"(?<=#)tag(?!s)"_s, u"tag"_s },
             })
            QCOMPARE(requiredLiteral(expression).toString(), literal);
        for (const char *unclear : { "cat|dog", "(?i)word", "a(?x)b c", "\\Qa.b\\E", "\\x61bc",
                                     "[[ab]c]def", "a)b", "[ab", "\\" })
            QVERIFY2(requiredLiteral(QString::fromLatin1(unclear)).isEmpty(), unclear);
    }
};

QTEST_APPLESS_MAIN(tst_Pattern)
#include "tst_Pattern.moc"
