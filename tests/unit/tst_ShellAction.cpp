// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "actions/Placeholder.h"
#include "actions/ScriptAction.h"
#include "actions/ShellAction.h"
#include "actions/ShellQuoting.h"
#include "base/CommandRunner.h"
#include "base/HelperFolder.h"
#include "files/Files.h"

#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>
#include <QTestEventLoop>

using namespace Tessel;
using namespace Qt::StringLiterals;

namespace {

constexpr int bound = 20000; // ms

/// Whatever a shell, printf or a locale could take for something of its own. The first is empty.
const QStringList &nastyTexts()
{
    static const QStringList texts
        = u"␞'␞''␞'\\''␞\"␞it's␞\\␞\\\\␞\\'␞\\n␞\n␞\n\n␞a\\\n␞\r\n␞\r␞\t␞ ␞  a  ␞"
          "$␞$HOME␞${HOME}␞$(id)␞$((1+1))␞`id`␞$'\\n'␞$$␞!!␞!id␞*␞?␞[a-z]␞~␞=ls␞{a,b}␞{text}␞"
          "^␞# a␞;id␞&␞|␞<(id)␞>a␞a=b␞()␞-␞--␞-n␞-e a␞-v␞%␞%s␞%1$s␞\\0␞\\c␞"
          "\x01␞\x03␞\x08␞\x1b[0m␞\x7f␞\u0081␞\u0085␞\u00a0␞é␞e\u0301␞\u0301␞일정␞"
          "\u202e␞\u2028␞\ufeff␞\uffff␞👩‍👩‍👧␞\U0001f1ea␞\U000e0041␞\U0010ffff"_s
              .split(u'␞');
    return texts;
}

/// From every plane of Unicode (no U+0000, no surrogates).
QString randomCharacter(QRandomGenerator &random)
{
    const char32_t character = (random.bounded(17u) << 16) + random.bounded(0x10000u);
    const bool isText = character != 0 && (character < 0xD800 || character > 0xDFFF);
    return isText ? QString::fromUcs4(&character, 1) : QString();
}

QString randomText(QRandomGenerator &random, int pieces)
{
    QString text;
    for (int i = 0; i < pieces; ++i) {
        switch (random.bounded(3)) {
        case 0:
            text += nastyTexts().at(random.bounded(static_cast<int>(nastyTexts().size())));
            break;
        case 1:
            text += QChar(random.bounded(1, 0x80));
            break;
        default:
            text += randomCharacter(random);
        }
    }
    return text;
}

/// Of so many bytes in UTF-8, or some more.
QString largeText(QRandomGenerator &random, qsizetype size)
{
    QString text;
    while (text.toUtf8().size() < size)
        text += randomText(random, 5000);
    return text;
}

QStringList randomTexts(QRandomGenerator &random, int count)
{
    QStringList texts;
    for (int i = 0; i < count; ++i)
        texts.append(randomText(random, random.bounded(1, 40)));
    return texts;
}

}

class tst_ShellAction : public QObject
{
    Q_OBJECT

    QTemporaryDir m_folder;

    static Result<CommandResult> outcome(const CommandRequest &request)
    {
        QTestEventLoop loop;
        Result<CommandResult> outcome = Failure { u"takes too long"_s };
        CommandRunner runner;
        runner.run(request, [&](const Result<CommandResult> &result) {
            outcome = result;
            loop.exitLoop();
        });
        loop.enterLoopMSecs(bound);
        return outcome;
    }

    /// What the command wrote to the file that "$OUT" names.
    static QByteArray written(const CommandRequest &request)
    {
        const auto result = outcome(request);
        const QByteArray failure = result ? result->errorOutput : result.error().reason.toUtf8();
        if (!failure.isEmpty())
            return "failed: " + failure;
        return readFile(qEnvironmentVariable("OUT"));
    }

    static void checkReport(const Result<CommandResult> &outcome, const QString &logLine,
                            const QString &error)
    {
        const ShellReport report = shellReport(outcome);
        QCOMPARE(report.logLine, logLine);
        QCOMPARE(report.error ? report.error->title + u": "_s + report.error->message : u""_s,
                 error);
    }

    static void setLocale(const QByteArray &name)
    {
        if (name.isNull())
            qunsetenv("LC_ALL"); // it would hide LANG
        else
            qputenv("LC_ALL", name);
    }

private Q_SLOTS:
    void cleanup() { setLocale("C.UTF-8"); }
    void initTestCase() { qputenv("OUT", QFile::encodeName(m_folder.filePath(u"out"_s))); }

    void textsArrive_data()
    {
        QTest::addColumn<QString>("shell");
        QTest::addColumn<QByteArray>("locale"); // null: what LANG says, which need not exist
        QTest::newRow("zsh") << u"/bin/zsh"_s << QByteArray();
        QTest::newRow("zsh, UTF-8") << u"/bin/zsh"_s << QByteArray("C.UTF-8");
        QTest::newRow("zsh, bytes") << u"/bin/zsh"_s << QByteArray("C");
        QTest::newRow("sh") << u"/bin/sh"_s << QByteArray();
    }

    void textsArrive()
    {
        QFETCH(QString, shell);
        QFETCH(QByteArray, locale);
        setLocale(locale);
        QRandomGenerator random(1);
        QList<QStringList> batches { nastyTexts() };
        for (int batch = 0; batch < 20; ++batch)
            batches += randomTexts(random, 250);
        for (const QStringList &texts : std::as_const(batches)) {
            CommandRequest all { shell, { u"-c"_s, u"exec > $OUT"_s } };
            for (const QString &text : texts) {
                all.arguments.last() += u'\n'
                    + shellCommandRequest(u"printf '%s\\0' '{text}'"_s, text, shell)
                          .arguments.constLast();
            }
            const QList<QByteArray> got = written(all).split('\0');
            for (qsizetype i = 0; i < texts.size(); ++i)
                QCOMPARE(got.value(i), texts[i].toUtf8());
        }

        for (const qsizetype size : { 100000, 1 << 20 }) {
            const QString large = largeText(random, size);
            QCOMPARE(written(shellCommandRequest(u"printf %s '{text}' > $OUT"_s, large, shell)),
                     large.toUtf8());
            const auto byVariable = outcome(
                shellCommandRequest(u"printf %s \"$TESSEL_TEXT\" > $OUT"_s, large, shell));
            QCOMPARE(bool(byVariable), size < 1 << 17);
            QVERIFY(byVariable || byVariable.error().reason.contains(u"TESSEL_TEXT"));
        }
    }

    /// Where a command is too long for an argument, it is none the wiser.
    void largeCommandsRunAsOthers()
    {
        for (const QString &text : { u"a"_s, QString(1 << 20, u'a') }) {
            CommandRequest request = shellCommandRequest(
                u": '{text}'; printf '%s ' \"$0\" $#; cat; ls /proc/self/fd; return 3"_s, text,
                u"/bin/zsh"_s);
            request.input = "input\n";
            const auto result = outcome(request).valueOr({});
            QCOMPARE(result.output, QByteArray("/bin/zsh 0 input\n0\n1\n2\n3\n"));
            QCOMPARE(result.exitStatus, 3);
        }
    }

    /// The shell is the judge of what is said about a template.
    void knowsWhereTextsAreSafe_data()
    {
        QTest::addColumn<bool>("isSafe");
        const auto rows = [](bool isSafe, std::initializer_list<const char *> commands) {
            for (const char *command : commands)
                QTest::newRow(command) << isSafe;
        };
        rows(true,
             { "printf %s '{text}'", "printf %s \"$TESSEL_TEXT\"", "(printf %s '{text}')",
               "printf %s \"$(printf %s '{text}')\"", ": \"it's\"; printf %s '{text}'",
               ": it\\'s; printf %s '{text}'", "# it's\nprintf %s '{text}'",
               ": $# 5#'6' \\ #; printf %s '{text}'", "printf %s \"$(cat <<<'{text}')\"",
               "cat <<E >/dev/null\nit's\nE\nprintf %s '{text}'",
               "cat <<-'E F' >/dev/null\n\tit's\n\tE F\nprintf %s '{text}'",
               ": $((1<<2)) `echo \"it's\"`\nprintf %s '{text}'", "printf %s ${x:-'{text}'}",
               ": $'it\\'s'; printf %s '{text}'",
               "printf %s \"${x:-\"$(printf %s '{text}')\"}\"" });
        rows(false,
             { "printf %s {text}", "printf %s \"{text}\"", "printf %s \"'{text}'\"",
               "printf %s \\'{text}\\'", "printf %s \\{text}", "printf %s ${text}",
               "printf %s \"`printf %s '{text}'`\"", "printf %s \"${x:-'{text}'}\"",
               "printf %s $'{text}'", "cat <<E\n'{text}'\nE", "cat <<'E'\n{text}\nE",
               "cat <<'{text}'\n", "# '{text}'\nprintf %s \"$TESSEL_TEXT\"",
               "printf %s '{text}' \"{text}\"", "printf %s $(( '{text}' ))" });
    }

    void knowsWhereTextsAreSafe()
    {
        QFETCH(bool, isSafe);
        const QString command = QString::fromLatin1(QTest::currentDataTag());
        const QString text = u"\\n it's \"  $(echo x) `echo x` #\nE\n$HOME *"_s;
        const bool arrives
            = written(shellCommandRequest(u"exec > $OUT\n"_s + command, text, u"/bin/zsh"_s))
            == text.toUtf8();
        QCOMPARE(arrives, isSafe);
        QCOMPARE(isTextQuoted(command), isSafe);
    }

    void environment()
    {
        qputenv("LANG", "own");
        qputenv("TESSEL_TEXT", "own");
        QCOMPARE(
            written(shellCommandRequest(u"env | grep -E '^(LANG|TESSEL_TEXT)=' | sort > $OUT"_s,
                                        u" a "_s, defaultShell())),
            QByteArray("LANG=en_US.UTF-8\nTESSEL_TEXT= a \n"));
    }

    void reports()
    {
        const QString exited = u"The command exited with status %1.\n\nError:\n%2"_s;
        for (const auto &[outcome, logLine, error] :
             { std::tuple { CommandResult { 0, false, "\ufeff일정\nb\t\r\n\u0085\u2028", "" },
                            u"Shell Output: \ufeff일정\nb"_s, u""_s },
               { { 0, false, " \n", "" }, u"Shell Output: "_s, u""_s },
               { { 0, false, "a\xff", "" }, u""_s, u""_s },
               { { 3, false, "out\n", " err\nor\n" },
                 u"ERROR: Shell command failed with status 3:  err\nor\n"_s,
                 u"Command Failed: "_s + exited.arg(3).arg(u"err\nor"_s) },
               { { 143, false, "", "ok \xc3(" }, // not UTF-8
                 u"ERROR: Shell command failed with status 143: Unknown error"_s,
                 u"Command Failed: "_s + exited.arg(143).arg(u"Unknown error"_s) } })
            checkReport(outcome, logLine, error);
        checkReport(Failure { u"/bin/zsh: gone"_s },
                    u"ERROR: Shell command failed: /bin/zsh: gone"_s,
                    u"Execution Failed: Could not launch the command.\n\nError:\n/bin/zsh: gone"_s);
    }

    /// Beside an installed program, whether they are there or not: never in the folder of a build.
    void findsHelpers()
    {
        QCOMPARE(helperFolder(m_folder.filePath(u"bin"_s)), m_folder.filePath(u"libexec/tessel"_s));
        QCOMPARE(QFileInfo(helperFolder()).fileName(), u"libexec"_s); // this program's own build
    }

    void helpersStandFirst()
    {
        const QByteArray original = qgetenv("PATH");
        for (const auto &[path, expected] :
             { std::pair { "/a:/b", ":/a:/b" }, { "", ":/usr/local/bin:/usr/bin:/bin" } }) {
            qputenv("PATH", path);
            prependHelperFolderToPath();
            const QByteArray changed = qgetenv("PATH");
            qputenv("PATH", original);
            QCOMPARE(changed, QFile::encodeName(helperFolder()) + expected);
        }
    }

    /// The text must stay a text, also where it looks like an option.
    void textIsNoOptionOfTheScriptRunner()
    {
        for (const auto &[text, name] : { std::pair { u"it's \"\\"_s, u"n"_s },
                                          { u"-ereturn \"run\""_s, u"n"_s },
                                          { u"--"_s, u"n"_s },
                                          { u"text"_s, u"-l"_s } }) {
            CommandRequest request = shortcutRequest(name, text, helperFolder() + u"/osascript"_s);
            QCOMPARE(request.arguments.size() > 4, text.startsWith(u'-') || name.startsWith(u'-'));
            request.arguments[1] = u"on run {t, n}\nreturn t & \"|\" & n\nend run"_s;
            QCOMPARE(outcome(request).valueOr({}).output, (text + u'|' + name + u'\n').toUtf8());
        }
    }

    void scriptsGetLargeTexts()
    {
        const QString runner = helperFolder() + u"/osascript"_s;
        QRandomGenerator random(2);
        const QString text = u"\ufeff-e\n"_s + largeText(random, 1 << 20);
        QCOMPARE(written(appleScriptRequest(u"do shell script \"printf %s \" & quoted form of "
                                            "\"{text}\" & \" > $OUT\""_s,
                                            text, runner)),
                 text.toUtf8());

        qputenv("XDG_DATA_HOME", QFile::encodeName(m_folder.path()));
        QVERIFY(writeProgram(m_folder.filePath(u"tessel/shortcuts/s"_s), u"cat > $OUT"_s));
        const auto ran = outcome(shortcutRequest(u"s"_s, text, runner));
        QCOMPARE(scriptLogLine(u"Shortcut"_s, ran),
                 u"Shortcut Result: Success: Ran 's' with Input: ["_s + text + u']');
        QCOMPARE(readFile(qEnvironmentVariable("OUT")), text.toUtf8());
    }
};

QTEST_GUILESS_MAIN(tst_ShellAction)
#include "tst_ShellAction.moc"
