// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "files/Files.h"
#include "osascript/terms/Terms.h"

#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>

#include <pwd.h>
#include <unistd.h>

using namespace Tessel;
using namespace Qt::StringLiterals;

namespace {

constexpr int patience = 20000; // ms

/// What the program leaves: "0 output" or "1 errors".
QString run(const QStringList &arguments, const QByteArray &input = {})
{
    QProcess process;
    process.setProgram(QStringLiteral(OSASCRIPT));
    process.setArguments(arguments);
    process.start();
    process.write(input);
    process.closeWriteChannel();
    if (!process.waitForFinished(patience) || process.exitStatus() != QProcess::NormalExit)
        return u"did not end"_s;
    return QString::number(process.exitCode()) + u' '
        + QString::fromUtf8(process.readAllStandardOutput() + process.readAllStandardError());
}

/// Words of the language, and what stands between words. Commands that wait, run programs or loop
/// are left out.
QStringList vocabulary()
{
    QStringList words = u"( ) { } , : 's - 1 2.5 \"text\" x y |z| -- (* *) \" |"_s.split(u' ');
    words += u"\n␞\n␞¬\n␞application \"Notes\"␞application \"System Events\"␞application \"Mail\""_s
                 .split(u'␞');
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

bool isAlive(qint64 process)
{
    return ::kill(static_cast<pid_t>(process), 0) == 0;
}

}

class tst_OsascriptCommandLine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void output_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QByteArray>("input");
        QTest::addColumn<QString>("expected");
        const auto row = [](const char *name, const QStringList &arguments, const QString &expected,
                            const QByteArray &input = {}) {
            QTest::newRow(name) << arguments << input << expected;
        };
        const QString usage
            = u"2 usage: osascript [-l AppleScript] [-s flags] [-e statement | file | -] "
              "[argument …]\n"_s;
        const auto one = [](const QString &script) { return QStringList { u"-e"_s, script }; };
        row("for people",
            one(u"{\"a\" & quote, {true, {x:1}}, date \"2026-11-21\", missing value, "
                "application \"Firefox\"}"_s),
            u"0 a\", true, x:1, date Saturday, November 21, 2026 at 12:00:00 AM, missing value, "
            "application Firefox\n"_s);
        row("empty text", one(u"\"\""_s), u"0 \n"_s);
        row("no result", one(u"delay 0"_s), u"0 "_s);
        row("empty script", one(u""_s), u"0 "_s);
        row("source form", { u"-ss"_s, u"-e"_s, u"{\"a\", 1}"_s }, u"0 {\"a\", 1}\n"_s);
        row("human form last", { u"-s"_s, u"sh"_s, u"-e"_s, u"{\"a\"}"_s }, u"0 a\n"_s);
        row("several lines", { u"-e"_s, u"set x to 2"_s, u"-e"_s, u"x * 2"_s }, u"0 4\n"_s);
        row("language", { u"-l"_s, u"AppleScript"_s, u"-e"_s, u"1"_s }, u"0 1\n"_s);
        row("arguments after the script", { u"-e"_s, u"on run a\na\nend"_s, u"-x"_s, u"y"_s },
            usage);
        row("arguments after two hyphens",
            { u"-e"_s, u"on run a\na\nend"_s, u"--"_s, u"-x"_s, u"y"_s }, u"0 -x, y\n"_s);
        row("standard input", {}, u"0 3\n"_s, "1 + 2\n");
        row("standard input with arguments", { u"-"_s, u"a"_s }, u"0 a\n"_s,
            "on run argv\nitem 1 of argv\nend run\n");
        row("carriage returns", {}, u"0 3\n"_s, "set x to 1\rset y to 2\rx + y\r");
        row("both", {}, u"0 3\n"_s, "set x to 1 + \302\254\r\n 1\r\nx + 1\r\n");
        row("line of a shell", {}, u"0 3\n"_s, "#!/usr/bin/osascript\n3\n");
        row("byte order mark", {}, u"0 3\n"_s, "\357\273\2773\n");
        row("UTF-16", {}, u"0 \u00e9\n"_s, QByteArray("\xff\xfe\"\0\xe9\0\"\0", 8));
        row("compiled script", {},
            u"1 osascript: -: Compiled scripts cannot be run, only their text.\n"_s,
            "FasdUAS 1.101.10\016");
        row("too long", {}, u"1 osascript: -: The script is too long.\n"_s,
            QByteArray((8 << 20) + 1, ' '));
        row("execution error", { u"-e"_s, u"set x to 1"_s, u"-e"_s, u"set y to item 5 of {1}"_s },
            u"1 20:33: execution error: Can’t get item 5 of {1}. (-1728)\n"_s);
        row("syntax error", one(u"foo bar"_s),
            u"1 4:7: syntax error: Expected end of line, etc. but found identifier. (-2741)\n"_s);
        row("unknown application", one(u"tell application \"Nope\" to quit"_s),
            u"1 5:23: execution error: Can’t get application \"Nope\". (-1728)\n"_s);
        row("unknown option", { u"-z"_s, u"1"_s }, usage);
        row("other language", { u"-l"_s, u"JavaScript"_s, u"-e"_s, u"1"_s }, usage);
        row("no such file", { u"/nowhere/x.applescript"_s },
            u"1 osascript: /nowhere/x.applescript: No such file or directory\n"_s);
    }

    void output()
    {
        QFETCH(const QStringList, arguments);
        QFETCH(const QByteArray, input);
        QTEST(run(arguments, input), "expected");
    }

    void runsFile()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(u"a script.applescript"_s);
        QVERIFY(writeFile(file, u"on run {a}\n  \"<\" & a & \">\"\nend run\n"_s));
        QCOMPARE(run({ file, u"x y"_s }), u"0 <x y>\n"_s);
    }

    void findsHome()
    {
        const QByteArray home = qgetenv("HOME");
        const QStringList script { u"-e"_s, u"POSIX path of (path to home folder)"_s };
        for (const char *bad : { "", "relative" }) {
            qputenv("HOME", bad);
            const QString outcome = run(script);
            qputenv("HOME", home);
            QCOMPARE(outcome, u"0 "_s + QFile::decodeName(getpwuid(getuid())->pw_dir) + u"/\n"_s);
        }
    }

    void reportsFullOutput()
    {
        QProcess process;
        process.setStandardOutputFile(u"/dev/full"_s);
        process.start(QStringLiteral(OSASCRIPT), { u"-e"_s, u"1"_s });
        QVERIFY(process.waitForFinished(patience));
        QCOMPARE(process.exitCode(), 1);
        QCOMPARE(process.readAllStandardError(),
                 QByteArray("osascript: standard output: No space left on device\n"));
    }

    void endsAtOnce_data()
    {
        QTest::addColumn<QString>("script");
        // What tells its number first, so that the test knows that it runs.
        QTest::newRow("delay") << u"log (do shell script \"echo $PPID\")\ndelay 1000"_s;
        QTest::newRow("loop") << u"log (do shell script \"echo $PPID\")\nrepeat\nend repeat"_s;
        QTest::newRow("child")
            << u"do shell script \"sleep 1000 & echo $! >$OSASCRIPT_CHILD; wait\""_s;
        QTest::newRow("child of a child")
            << u"do shell script \"sh -c 'sleep 1000; true' & echo $! >$OSASCRIPT_CHILD; wait\""_s;
    }

    void endsAtOnce()
    {
        QFETCH(const QString, script);
        const QTemporaryDir folder;
        const QString childFile = folder.filePath(u"child"_s);
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"OSASCRIPT_CHILD"_s, childFile);
        process.setProcessEnvironment(environment);
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(QStringLiteral(OSASCRIPT), { u"-e"_s, script });
        const auto hasStarted = [&] {
            process.waitForReadyRead(20);
            return process.bytesAvailable() > 0 || QFileInfo(childFile).size() > 0;
        };
        QTRY_VERIFY_WITH_TIMEOUT(hasStarted(), patience);
        process.terminate();
        QVERIFY(process.waitForFinished(patience));
        QCOMPARE(process.exitStatus(), QProcess::CrashExit); // by the signal itself
        if (!QFile::exists(childFile))
            return;
        const qint64 child = readFile(childFile).trimmed().toLongLong();
        QVERIFY(child > 0);
        QTRY_VERIFY_WITH_TIMEOUT(!isAlive(child), patience);
    }

    /// It ends by itself, with a result or with an error, whatever the script is.
    void survivesSoup()
    {
        const QStringList words = vocabulary();
        QRandomGenerator random(20261121);
        for (int round = 0; round < 300; ++round) {
            QString script;
            for (int left = random.bounded(3, 60); left > 0; --left)
                script += words.at(random.bounded(words.size())) + u' ';
            const QString outcome = run({}, script.toUtf8());
            QVERIFY2(outcome.startsWith(u"0 ") || outcome.startsWith(u"1 "), qPrintable(script));
        }
    }
};

QTEST_GUILESS_MAIN(tst_OsascriptCommandLine)
#include "tst_OsascriptCommandLine.moc"
