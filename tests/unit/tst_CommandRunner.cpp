// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "base/ChildProcess.h"
#include "base/CommandRunner.h"
#include "files/Files.h"

#include <QAbstractEventDispatcher>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>

#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Tessel;
using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(CommandRequest)

namespace {

constexpr int bound = 20000; // ms

struct Process
{
    pid_t pid = 0;
    char state = 0;
};

/// Of this process; those whose parent has gone have become its own.
QList<Process> childProcesses()
{
    QList<Process> found;
    const QStringList entries = QDir(u"/proc"_s).entryList(QDir::Dirs);
    for (const QString &entry : entries) {
        const QByteArray stat = readFile(u"/proc/%1/stat"_s.arg(entry)); // or it has just gone
        const QList<QByteArray> fields = stat.mid(stat.lastIndexOf(')') + 2).split(' ');
        if (entry.toInt() != 0 && fields.value(1).toInt() == getpid())
            found.append({ entry.toInt(), fields.first().at(0) });
    }
    return found;
}

void endChildProcesses()
{
    for (QList<Process> left = childProcesses(); !left.isEmpty(); left = childProcesses()) {
        for (const Process &child : left) {
            kill(child.pid, SIGKILL);
            waitpid(child.pid, nullptr, 0);
        }
    }
}

qsizetype entriesOf(const char *folder)
{
    return QDir(QLatin1String(folder))
        .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)
        .size();
}

/// How many bytes wait in the pipe that is the process's standard output.
int unreadOutput(pid_t pid)
{
    const int pipe = open(qPrintable(u"/proc/%1/fd/1"_s.arg(pid)), O_RDONLY | O_NONBLOCK);
    int size = 0;
    ioctl(pipe, FIONREAD, &size);
    close(pipe);
    return size;
}

CommandRequest script(const char *text)
{
    return { u"/bin/sh"_s, { u"-c"_s, QString::fromUtf8(text) } };
}

}

class tst_CommandRunner : public QObject
{
    Q_OBJECT

    std::optional<CommandRunner> m_runner;
    QList<CommandResult> m_results;
    QString m_failure;

    void start(const CommandRequest &request)
    {
        m_runner->run(request, [this](const Result<CommandResult> &result) {
            m_failure = result ? QString() : result.error().reason;
            m_results.append(result.valueOr({}));
        });
    }

private Q_SLOTS:
    void initTestCase() { QCOMPARE(prctl(PR_SET_CHILD_SUBREAPER, 1), 0); }

    void init()
    {
        std::signal(SIGCHLD, SIG_IGN);
        m_runner.emplace();
        m_results.clear();
    }

    void cleanup()
    {
        m_runner.reset();
        endChildProcesses();
    }

    void reportsResult_data()
    {
        QTest::addColumn<CommandRequest>("request");
        QTest::addColumn<int>("exitStatus");
        QTest::addColumn<QByteArray>("output");
        QTest::addColumn<QByteArray>("errorOutput");
        const auto row = [](const char *name, const CommandRequest &request, int exitStatus = 0,
                            const QByteArray &output = {}, const QByteArray &errorOutput = {}) {
            QTest::newRow(name) << request << exitStatus << output << errorOutput;
        };
        row("exit status", script("echo out; echo err >&2; exit 3"), 3, "out\n", "err\n");
        row("SIGKILL", script("echo out; kill -KILL $$"), 137, "out\n");
        row("bytes", script("printf 'a\\0\\377'; printf '\\200' >&2"), 0, { "a\0\xff", 3 }, "\x80");
        row("name and arguments", { u"printf"_s, { u"%s|"_s, u"일정 '"_s, QString() } }, 0,
            "일정 '||");
        row("a full pipe", script("head -c 65536 /dev/zero"), 0, QByteArray(65536, '\0'));

        CommandRequest merged = script("echo a; echo b >&2; head -c 2000000 /dev/zero >&2");
        merged.errorOutput = CommandRequest::Output::merged;
        merged.pipeSize = 4 << 20; // more than the system gives a pipe
        row("merged", merged, 0, "a\nb\n" + QByteArray(2000000, '\0'));

        CommandRequest environment = script("env | LC_ALL=C grep -a ^OWN_ | LC_ALL=C sort");
        environment.environment
            = { { u"OWN_B"_s, u"x=ä\n"_s }, { u"OWN_C"_s, {} }, { u"OWN_D"_s, QString() } };
        row("environment", environment, 0, "OWN_A=a\nOWN_B=x=ä\nOWN_BYTES=\xff\nOWN_D=\n");

        CommandRequest input = script("pwd; cat");
        input.workingFolder = u"/usr"_s;
        input.input = QByteArray(300000, 'x');
        input.pipeSize = 1 << 20;
        row("folder and input", input, 0, "/usr\n" + *input.input);
        input.input = QByteArray();
        input.errorOutput = CommandRequest::Output::nothing;
        input.arguments.last() += u"; echo lost >&2"_s;
        row("empty input, errors to nowhere", input, 0, "/usr\n");
    }

    void reportsResult()
    {
        QFETCH(CommandRequest, request);
        for (const auto &[name, value] : { std::pair { "OWN_A", "a" },
                                           { "OWN_B", "overridden" },
                                           { "OWN_BYTES", "\xff" },
                                           { "OWN_C", "removed" } })
            qputenv(name, value);
        start(request);
        QTRY_COMPARE_WITH_TIMEOUT(m_results.size(), 1, bound);
        const CommandResult &result = m_results.constFirst();
        QCOMPARE(m_failure, QString());
        QTEST(result.exitStatus, "exitStatus");
        QCOMPARE(result.isEndedBySignal, result.exitStatus > 128);
        QTEST(result.output, "output");
        QTEST(result.errorOutput, "errorOutput");
    }

    /// Also where this process has closed its own: new descriptors get their numbers.
    void childHasStandardDescriptorsOnly()
    {
        const int inheritable = open("/dev/null", O_RDONLY);
        const int savedInput = dup(STDIN_FILENO);
        const int savedError = dup(STDERR_FILENO);
        CommandRequest request
            = script("ls /proc/self/fd; readlink /proc/self/fd/0; echo error >&2");
        request.input = QByteArray();
        close(STDIN_FILENO);
        close(STDERR_FILENO);
        start(request);
        dup2(savedInput, STDIN_FILENO);
        dup2(savedError, STDERR_FILENO);
        for (const int descriptor : { inheritable, savedInput, savedError })
            close(descriptor);
        QTRY_COMPARE_WITH_TIMEOUT(m_results.size(), 1, bound);
        QCOMPARE(m_results.constFirst().output, // the fourth descriptor is the folder
                 QByteArray("0\n1\n2\n3\n/dev/null\n"));
        QCOMPARE(m_results.constFirst().errorOutput, QByteArray("error\n"));
    }

    void childHasNoSignalIgnoredOrBlocked()
    {
        sigset_t blocked;
        sigemptyset(&blocked);
        sigaddset(&blocked, SIGTERM);
        sigprocmask(SIG_BLOCK, &blocked, nullptr);
        for (const int number : { SIGPIPE, SIGHUP })
            std::signal(number, SIG_IGN);
        // No shell, which could clear them; not signals 32 and 33, which glibc leaves ignored.
        start({ u"/bin/sed"_s,
                { u"-nE"_s, u"s/^(Sig(Blk|Ign)).*(.{7})$/\\1 \\3/p"_s, u"/proc/self/status"_s } });
        sigset_t now;
        sigprocmask(SIG_UNBLOCK, &blocked, &now);
        for (const int number : { SIGPIPE, SIGHUP })
            QVERIFY(std::signal(number, SIG_DFL) == SIG_IGN); // this process keeps its own
        QCOMPARE(sigismember(&now, SIGTERM), 1);
        QTRY_COMPARE_WITH_TIMEOUT(m_results.size(), 1, bound);
        QCOMPARE(m_results.constFirst().output, QByteArray("SigBlk 0000000\nSigIgn 0000000\n"));
    }

    void launchFails()
    {
        const QString echo = u"/bin/echo"_s;
        const QString missing = QString::fromLocal8Bit(std::strerror(ENOENT));
        const qsizetype descriptors = entriesOf("/proc/self/fd");
        for (const auto &[request, reason] :
             { std::pair { CommandRequest { u"/nowhere/zsh"_s }, u"/nowhere/zsh: "_s + missing },
               { { u"nowhere"_s }, u"nowhere: "_s + missing }, // on the PATH
               { { .program = echo, .workingFolder = u"/nowhere"_s }, echo + u": "_s + missing },
               { { echo, { u"a\0b"_s } }, u"The text contains a NUL character"_s },
               { { echo, {}, { { u"A"_s, QString(4000000, u'a') } } },
                 u"The text is too large"_s } }) {
            m_results.clear();
            start(request);
            QVERIFY(m_results.isEmpty());
            QTRY_COMPARE_WITH_TIMEOUT(m_results.size(), 1, bound);
            QVERIFY2(m_failure.startsWith(reason), qPrintable(m_failure));
            const Result<void> detached = startDetached(request);
            QVERIFY(!detached && detached.error().reason.endsWith(m_failure));
            QCOMPARE(entriesOf("/proc/self/fd"), descriptors);
            endChildProcesses(); // as what is detached has this process for its parent
        }
    }

    void endlessCommandsDelayNobody()
    {
        const qsizetype threads = entriesOf("/proc/self/task");
        for (int i = 0; i < 50; ++i)
            start({ u"/bin/sleep"_s, { u"1000"_s } });
        start(script("echo 51st"));
        QTRY_COMPARE_WITH_TIMEOUT(m_results.size(), 1, bound);
        QCOMPARE(m_results.constFirst().output, QByteArray("51st\n"));
        QCOMPARE(entriesOf("/proc/self/task"), threads);

        m_runner.reset(); // neither waits for them nor ends them
        const QList<Process> left = childProcesses();
        QCOMPARE(left.size(), 50);
        QVERIFY(std::none_of(left.begin(), left.end(),
                             [](const Process &child) { return child.state == 'Z'; }));
    }

    /// However that ends.
    void childEndsWithItsParent()
    {
        std::signal(SIGCHLD, SIG_DFL);
        const pid_t parent = fork();
        if (parent == 0) {
            const auto child = ChildProcess::start(
                { .program = u"/bin/sleep"_s, .arguments = { u"1000"_s }, .endsWithParent = true });
            _exit(child ? EXIT_SUCCESS : EXIT_FAILURE);
        }
        int status = -1;
        QCOMPARE(waitpid(parent, &status, 0), parent);
        QCOMPARE(status, 0);
        QCOMPARE(childProcesses().size(), 1); // it has become this one's
        QCOMPARE(wait(&status), childProcesses().value(0).pid);
        QVERIFY(WIFSIGNALED(status));
    }

    void detachedProgramHasItsOwnSession()
    {
        QVERIFY(startDetached({ u"sleep"_s, { u"1000"_s } }));
        QCOMPARE(childProcesses().size(), 1); // nobody's, were this not the reaper
        const pid_t program = childProcesses().constFirst().pid;
        QVERIFY(getsid(program) != getsid(0));
        QVERIFY(getsid(program) != program); // cannot get a terminal
        QCOMPARE(QFile::symLinkTarget(u"/proc/%1/fd/2"_s.arg(program)), u"/dev/null"_s);
    }

    void fullPipesDelayNobody()
    {
        start({ u"/usr/bin/head"_s, { u"-c65537"_s, u"/dev/zero"_s } });
        QCOMPARE(childProcesses().size(), 1);
        const pid_t pid = childProcesses().constFirst().pid;
        QTRY_COMPARE_WITH_TIMEOUT(unreadOutput(pid), 65536, bound);
        start(script("yes & yes >&2 &"));
        QTRY_COMPARE_WITH_TIMEOUT(m_results.size(), 1, bound);
        QVERIFY(m_results.constFirst().output.size() <= 65536);
        int awakenings = 0;
        connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake, &*m_runner,
                [&awakenings] { ++awakenings; });
        start(script("sleep 0.3; echo other"));
        QTRY_COMPARE_WITH_TIMEOUT(m_results.size(), 2, bound);
        QCOMPARE(m_results.constLast().output, QByteArray("other\n"));
        QVERIFY2(awakenings < 300, qPrintable(QString::number(awakenings)));
        QCOMPARE(unreadOutput(pid), 65536);
    }

    void backgroundProgramCanWriteOn()
    {
        const QTemporaryDir folder;
        const qsizetype descriptors = entriesOf("/proc/self/fd");
        CommandRequest request = script("(until [ -e \"$FOLDER/go\" ]; do sleep 0.01; done;"
                                        "head -c 200000 /dev/zero && head -c 200000 /dev/zero >&2"
                                        "&& touch \"$FOLDER/survived\") &");
        request.environment = { { u"FOLDER"_s, folder.path() } };
        start(request);
        QTRY_COMPARE_WITH_TIMEOUT(m_results.size(), 1, bound);
        QVERIFY(QFile(folder.filePath(u"go"_s)).open(QIODevice::WriteOnly));
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(folder.filePath(u"survived"_s)), bound);
        QTRY_COMPARE_WITH_TIMEOUT(entriesOf("/proc/self/fd"), descriptors, bound);
    }
};

QTEST_GUILESS_MAIN(tst_CommandRunner)
#include "tst_CommandRunner.moc"
