// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "actions/CommandRunner.h"

#include <QDir>
#include <QFile>
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

Q_DECLARE_METATYPE(CommandRunner::ExitNotice)
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
        QFile file(u"/proc/%1/stat"_s.arg(entry));
        if (entry.toInt() == 0 || !file.open(QIODevice::ReadOnly))
            continue;
        const QByteArray stat = file.readAll();
        const QList<QByteArray> fields = stat.mid(stat.lastIndexOf(')') + 2).split(' ');
        if (fields.value(1).toInt() == getpid())
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
    return { u"/bin/sh"_s, { u"-c"_s, QString::fromUtf8(text) }, {}, {} };
}

QString words(int error)
{
    return QString::fromLocal8Bit(std::strerror(error));
}

}

class tst_CommandRunner : public QObject
{
    Q_OBJECT

    std::optional<CommandRunner> m_runner;
    QList<CommandResult> m_results;

    void start(const CommandRequest &request)
    {
        m_runner->run(request, [this](const CommandResult &result) { m_results.append(result); });
    }

private Q_SLOTS:
    void initTestCase_data()
    {
        QTest::addColumn<CommandRunner::ExitNotice>("notice");
        QTest::newRow("pidfd") << CommandRunner::ExitNotice::pidfd;
        QTest::newRow("thread") << CommandRunner::ExitNotice::thread;
    }

    void initTestCase() { QCOMPARE(prctl(PR_SET_CHILD_SUBREAPER, 1), 0); }

    void init()
    {
        QFETCH_GLOBAL(CommandRunner::ExitNotice, notice);
        std::signal(SIGCHLD, SIG_IGN);
        m_runner.emplace(notice);
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
        row("arguments", { u"/usr/bin/printf"_s, { u"%s|"_s, u"일정 '"_s, QString() }, {}, {} }, 0,
            "일정 '||");
        row("a full pipe", script("head -c 65536 /dev/zero"), 0, QByteArray(65536, '\0'));
        row("left in the background", script("sleep 1000 & echo started"), 0, "started\n");

        CommandRequest merged = script("echo a; echo b >&2; echo c");
        merged.output = CommandRequest::Output::merged;
        row("merged", merged, 0, "a\nb\nc\n");

        CommandRequest environment = script("env | LC_ALL=C grep -a ^OWN_ | LC_ALL=C sort");
        environment.environment = { { u"OWN_B"_s, u"x=ä\n"_s }, { u"OWN_D"_s, QString() } };
        row("environment", environment, 0, "OWN_A=a\nOWN_B=x=ä\nOWN_BYTES=\xff\nOWN_D=\n");
    }

    void reportsResult()
    {
        QFETCH(CommandRequest, request);
        for (const auto &[name, value] :
             { std::pair { "OWN_A", "a" }, { "OWN_B", "overridden" }, { "OWN_BYTES", "\xff" } })
            qputenv(name, value);
        start(request);
        QTRY_COMPARE_WITH_TIMEOUT(m_results.size(), 1, bound);
        const CommandResult &result = m_results.constFirst();
        QVERIFY(!result.launchError);
        QTEST(result.exitStatus, "exitStatus");
        QTEST(result.output, "output");
        QTEST(result.errorOutput, "errorOutput");
    }

    void childHasStandardDescriptorsOnly()
    {
        const int inheritable = open("/dev/null", O_RDONLY);
        start(script("ls /proc/self/fd; readlink /proc/self/fd/0"));
        close(inheritable);
        QTRY_COMPARE_WITH_TIMEOUT(m_results.size(), 1, bound);
        char standardInput[256] = {};
        QVERIFY(readlink("/proc/self/fd/0", standardInput, sizeof standardInput - 1) > 0);
        QCOMPARE(m_results.constFirst().output, // the fourth descriptor is the folder
                 QByteArray("0\n1\n2\n3\n") + standardInput + '\n');
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
                { u"-nE"_s, u"s/^(Sig(Blk|Ign)).*(.{7})$/\\1 \\3/p"_s, u"/proc/self/status"_s },
                {},
                {} });
        sigprocmask(SIG_UNBLOCK, &blocked, nullptr);
        for (const int number : { SIGPIPE, SIGHUP })
            std::signal(number, SIG_DFL);
        QTRY_COMPARE_WITH_TIMEOUT(m_results.size(), 1, bound);
        QCOMPARE(m_results.constFirst().output, QByteArray("SigBlk 0000000\nSigIgn 0000000\n"));
    }

    void launchFails_data()
    {
        QTest::addColumn<CommandRequest>("request");
        QTest::addColumn<QString>("reason");
        const QString nul = u"The text contains a NUL character"_s;
        const QString large = u"The text is too large"_s;
        const QString text(4000000, u'a');
        const auto row
            = [](const char *name, const QString &program, const QStringList &arguments,
                 const QString &variable, const QString &reason) {
                  QTest::newRow(name)
                      << CommandRequest { program, arguments, { { u"A"_s, variable } }, {} }
                      << reason;
              };
        row("missing", u"/nowhere/zsh"_s, {}, {}, u"/nowhere/zsh: "_s + words(ENOENT));
        row("not a program", u"/etc/passwd"_s, {}, {}, u"/etc/passwd: "_s + words(EACCES));
        row("NUL in argument", u"/bin/echo"_s, { u"a\0b"_s }, {}, nul);
        row("NUL in variable", u"/bin/echo"_s, {}, u"\0"_s, nul);
        row("large argument", u"/bin/echo"_s, { text }, {}, large);
        row("large variable", u"/bin/echo"_s, {}, text, large);
    }

    void launchFails()
    {
        QFETCH(CommandRequest, request);
        QFETCH(QString, reason);
        const qsizetype descriptors = entriesOf("/proc/self/fd");
        start(request);
        QVERIFY(m_results.isEmpty());
        QTRY_COMPARE_WITH_TIMEOUT(m_results.size(), 1, bound);
        const QString error = m_results.constFirst().launchError.value_or(QString());
        QVERIFY2(error.startsWith(reason), qPrintable(error));
        QCOMPARE(entriesOf("/proc/self/fd"), descriptors);
        QVERIFY(childProcesses().isEmpty());
    }

    void endlessCommandsDelayNobody()
    {
        QFETCH_GLOBAL(CommandRunner::ExitNotice, notice);
        const qsizetype threads = entriesOf("/proc/self/task");
        for (int i = 0; i < 50; ++i)
            start({ u"/bin/sleep"_s, { u"1000"_s }, {}, {} });
        start(script("echo 51st"));
        QTRY_COMPARE_WITH_TIMEOUT(m_results.size(), 1, bound);
        QCOMPARE(m_results.constFirst().output, QByteArray("51st\n"));
        if (notice == CommandRunner::ExitNotice::pidfd)
            QCOMPARE(entriesOf("/proc/self/task"), threads);

        m_runner.reset(); // neither waits for them nor ends them
        const QList<Process> left = childProcesses();
        QCOMPARE(left.size(), 50);
        QVERIFY(std::none_of(left.begin(), left.end(),
                             [](const Process &child) { return child.state == 'Z'; }));
    }

    void fullPipesDelayNobody()
    {
        start({ u"/usr/bin/head"_s, { u"-c65537"_s, u"/dev/zero"_s }, {}, {} });
        QCOMPARE(childProcesses().size(), 1);
        const pid_t pid = childProcesses().constFirst().pid;
        QTRY_COMPARE_WITH_TIMEOUT(unreadOutput(pid), 65536, bound);
        start(script("yes & yes >&2 &"));
        QTRY_COMPARE_WITH_TIMEOUT(m_results.size(), 1, bound);
        QVERIFY(m_results.constFirst().output.size() <= 65536);
        start(script("echo other"));
        QTRY_COMPARE_WITH_TIMEOUT(m_results.size(), 2, bound);
        QCOMPARE(m_results.constLast().output, QByteArray("other\n"));
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
