// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include <QProcess>
#include <QRandomGenerator>
#include <QTest>

#include "osascript/terms/Terms.h"

using namespace Tessel;
using namespace Qt::StringLiterals;

namespace {

constexpr int patience = 20000; // ms

/// Ends by itself, whatever the script is: with a result, or with an error.
struct End
{
    bool isOrderly = false;
    QString errors;
};

End run(const QString &script)
{
    QProcess process;
    process.start(QStringLiteral(OSASCRIPT), {});
    process.write(script.toUtf8());
    process.closeWriteChannel();
    const bool hasEnded = process.waitForFinished(patience);
    if (!hasEnded) {
        process.kill();
        process.waitForFinished();
    }
    return { hasEnded && process.exitStatus() == QProcess::NormalExit && process.exitCode() <= 1,
             QString::fromUtf8(process.readAllStandardError()) };
}

/// Words of the language, and what stands between words. Commands that wait, run programs or loop
/// are left out.
QStringList vocabulary()
{
    QStringList words = u"( ) { } , : 's - 1 2.5 \"text\" x y |z| -- (* *) \" |"_s.split(u' ');
    words += { u"\n"_s,
               u"\n"_s,
               u"¬\n"_s,
               u"application \"Notes\""_s,
               u"application \"System Events\""_s,
               u"application \"Mail\""_s };
    for (const Osascript::OperatorTerm &term : Osascript::operatorTerms())
        words.append(term.words.toString());
    for (const Osascript::NameTerm &term : Osascript::nameTerms())
        words.append(term.words.toString());
    for (const QStringView word : Osascript::reservedWords()) {
        if (word != u"repeat")
            words.append(word.toString());
    }
    for (const Osascript::CommandTerm &term : Osascript::commandTerms()) {
        if (term.words != u"delay" && term.words != u"do shell script" && term.words != u"make"
            && term.words != u"say")
            words.append(term.words.toString());
    }
    return words;
}

}

class tst_OsascriptRobustness : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void survivesSoup();
    void survivesDamage();
    void limits_data();
    void limits();
};

void tst_OsascriptRobustness::survivesSoup()
{
    const QStringList words = vocabulary();
    QRandomGenerator random(20261121);
    for (int round = 0; round < 300; ++round) {
        QString script;
        for (int left = random.bounded(3, 60); left > 0; --left)
            script += words.at(random.bounded(words.size())) + u' ';
        QVERIFY2(run(script).isOrderly, qPrintable(script));
    }
}

/// A script that uses everything, of which a part is missing.
void tst_OsascriptRobustness::survivesDamage()
{
    const QString script = uR"(property p : {1, {a:"x", |b c|:2.5}}
on f(a, {b, c})
    try
        repeat with i from 1 to 3 by 1
            if a > i then error "e" & i number 5
        end repeat
    on error m number n
        return {m, n, item 1 of p, word 2 of "one two" as text}
    end try
end f
considering case but ignoring white space
    tell application "System Events" to keystroke "v" using {command down}
end considering
script s
    property q : date "2026-11-21"
end script
set text item delimiters to ","
set {x, y} to f(2, {3, 4}) (* note (* inner *) *)
first process of application "Finder" -- ¬
set end of x to (current date) + 2 * days
)"_s;
    QRandomGenerator random(7);
    for (int round = 0; round < 300; ++round) {
        const int from = random.bounded(static_cast<int>(script.size()));
        const QString damaged = round % 2 == 0
            ? script.left(from)
            : QString(script).remove(from, random.bounded(1, 40));
        QVERIFY2(run(damaged).isOrderly, qPrintable(damaged));
    }
}

void tst_OsascriptRobustness::limits_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("error");
    const auto row = [](const char *name, const QString &script, const QString &error) {
        QTest::newRow(name) << script << error;
    };
    const auto times = [](int count, const QString &text) { return text.repeated(count); };
    const QString syntax = u"(-2741)"_s;
    row("parentheses", times(10000, u"("_s) + u'1' + times(10000, u")"_s), syntax);
    row("blocks", times(10000, u"if true then\n"_s), syntax);
    row("one-line blocks", times(10000, u"tell me to "_s), syntax);
    row("containers", times(10000, u"name of "_s) + u'x', syntax);
    row("possessives", u'x' + times(10000, u"'s name"_s), syntax);
    row("negations", times(10000, u"not "_s) + u"true"_s, syntax);
    row("operators", u'1' + times(10000, u" + 1"_s), syntax);
    row("comments", times(10000, u"(*"_s), syntax);
    row("long list", u'{' + times(20000, u"1, "_s) + u"1}\n1"_s, {});
    row("many statements", times(20000, u"set x to 1\n"_s), {});
    row("recursion", u"on f()\nf()\nend f\nf()"_s, u"(-2706)"_s);
    row("caught recursion",
        u"on f()\nf()\nend f\ntry\nf()\non error number n\nerror number n\nend"_s, u"(-2706)"_s);
    row("run script recursion",
        u"property t : \"run script t\"\nrun script \"run script \\\"1 +\\\"\""_s, syntax);
    row("nested list", u"set l to {}\nrepeat 300000 times\nset l to {l}\nend repeat\n1"_s, {});
    row("nested list printed",
        u"set l to {}\nrepeat 300000 times\nset l to {l}\nend repeat\nl as text"_s, u"(-2706)"_s);
    row("nested list compared",
        u"set l to {}\nset m to {1}\nrepeat 300000 times\nset l to {l}\nset m to {m}\nend repeat\nl = m"_s,
        u"(-2706)"_s);
    row("list of itself", u"set l to {1}\nset item 1 of l to {l}"_s, u"(-2706)"_s);
    row("growing text", u"set t to \"abcd\"\nrepeat\nset t to t & t\nend repeat"_s, u"(-108)"_s);
    row("growing list", u"set l to {1}\nrepeat\nset l to l & l\nend repeat"_s, u"(-108)"_s);
    row("multiplying list",
        u"set l to {1}\nrepeat 60 times\nset l to {l, l}\nend repeat\ncopy l to m"_s, u"(-108)"_s);
    row("multiplying text", u"set l to {\"x\"}\nrepeat 60 times\nset l to {l, l}\nend repeat\nl"_s,
        u"(-108)"_s);
    row("script of itself", u"property p : 1\nset p to me\np"_s, {});
    row("long output", u"do shell script \"yes | head -c 100000000\""_s, u"(-108)"_s);
}

void tst_OsascriptRobustness::limits()
{
    QFETCH(const QString, script);
    QFETCH(const QString, error);
    const End end = run(script);
    QVERIFY(end.isOrderly);
    if (error.isEmpty())
        QCOMPARE(end.errors, QString());
    else
        QVERIFY2(end.errors.contains(error), qPrintable(end.errors.left(300)));
}

QTEST_GUILESS_MAIN(tst_OsascriptRobustness)
#include "tst_OsascriptRobustness.moc"
