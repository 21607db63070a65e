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

/// Whether it ends by itself, with a result or with an error, whatever the script is.
bool endsOrderly(const QString &script)
{
    QProcess process;
    process.start(QStringLiteral(OSASCRIPT), {});
    process.write(script.toUtf8());
    process.closeWriteChannel();
    if (!process.waitForFinished(patience)) {
        process.kill();
        process.waitForFinished();
        return false;
    }
    return process.exitStatus() == QProcess::NormalExit && process.exitCode() <= 1;
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
};

void tst_OsascriptRobustness::survivesSoup()
{
    const QStringList words = vocabulary();
    QRandomGenerator random(20261121);
    for (int round = 0; round < 300; ++round) {
        QString script;
        for (int left = random.bounded(3, 60); left > 0; --left)
            script += words.at(random.bounded(words.size())) + u' ';
        QVERIFY2(endsOrderly(script), qPrintable(script));
    }
}

QTEST_GUILESS_MAIN(tst_OsascriptRobustness)
#include "tst_OsascriptRobustness.moc"
