// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "actions/CommandRunner.h"

#include <QList>
#include <QSocketNotifier>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <thread>
#include <utility>
#include <variant>
#include <vector>

#include <fcntl.h>
#include <spawn.h>
#include <sys/ioctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

/// Owns a file descriptor.
class Descriptor final
{
public:
    Descriptor() = default;
    explicit Descriptor(int number)
        : m_number(number)
    {
    }
    Descriptor(Descriptor &&other) noexcept
        : m_number(std::exchange(other.m_number, -1))
    {
    }
    Descriptor &operator=(Descriptor &&other) noexcept
    {
        std::swap(m_number, other.m_number);
        return *this;
    }
    ~Descriptor()
    {
        if (isValid())
            close(m_number);
    }
    Q_DISABLE_COPY(Descriptor)

    [[nodiscard]] bool isValid() const { return m_number >= 0; }
    [[nodiscard]] int number() const { return m_number; }

private:
    int m_number = -1;
};

constexpr int mergedPipeSize = 256 << 10; ///< bytes: runners quote their input, up to 128 KiB

struct Pipe
{
    Descriptor readEnd;
    Descriptor writeEnd;
};

/// Has invalid ends, and errno set, on failure.
Pipe makePipe()
{
    std::array<int, 2> ends = { -1, -1 };
    if (pipe2(ends.data(), O_CLOEXEC) != 0)
        return {};
    return { Descriptor(ends[0]), Descriptor(ends[1]) };
}

struct Child
{
    pid_t pid = 0;
    Descriptor output;
    Descriptor errorOutput; ///< invalid when merged
};

/// What posix_spawn(3) is told about the child's descriptors and signals.
class SpawnSetup final
{
public:
    SpawnSetup(int output, int errorOutput)
    {
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
        posix_spawn_file_actions_adddup2(&actions, errorOutput, STDERR_FILENO);
        // Libraries open some without close-on-exec.
        posix_spawn_file_actions_addclosefrom_np(&actions, STDERR_FILENO + 1);

        sigset_t signalSet;
        posix_spawnattr_init(&attributes);
        sigfillset(&signalSet);
        posix_spawnattr_setsigdefault(&attributes, &signalSet);
        sigemptyset(&signalSet);
        posix_spawnattr_setsigmask(&attributes, &signalSet);
        posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
    }
    ~SpawnSetup()
    {
        posix_spawnattr_destroy(&attributes);
        posix_spawn_file_actions_destroy(&actions);
    }
    Q_DISABLE_COPY_MOVE(SpawnSetup)

    posix_spawn_file_actions_t actions {};
    posix_spawnattr_t attributes {};
};

/// The process's own variables, byte for byte, with the additions in place of those they override.
QList<QByteArray> environmentWith(const QMap<QString, QString> &additions)
{
    QList<QByteArray> entries;
    for (char **entry = environ; entry && *entry; ++entry) {
        const QByteArray own(*entry);
        if (!additions.contains(QString::fromUtf8(own.left(own.indexOf('=')))))
            entries.append(own);
    }
    for (auto it = additions.cbegin(); it != additions.cend(); ++it)
        entries.append((it.key() + u'=' + it.value()).toUtf8());
    return entries;
}

QList<QByteArray> argumentsOf(const CommandRequest &request)
{
    QList<QByteArray> arguments { request.program.toUtf8() };
    for (const QString &argument : request.arguments)
        arguments.append(argument.toUtf8());
    return arguments;
}

/// As exec(3) wants them; they point into the list.
std::vector<char *> nullTerminated(QList<QByteArray> &strings)
{
    std::vector<char *> pointers;
    for (QByteArray &string : strings)
        pointers.push_back(string.data());
    pointers.push_back(nullptr);
    return pointers;
}

bool hasNul(const QList<QByteArray> &strings)
{
    return std::any_of(strings.cbegin(), strings.cend(),
                       [](const QByteArray &string) { return string.contains('\0'); });
}

QString reason(int error, const QString &program)
{
    if (error == E2BIG)
        return u"The text is too large to be handed to a program."_s;
    return program + u": "_s + QString::fromLocal8Bit(std::strerror(error));
}

/// The running child, or why there is none.
std::variant<Child, QString> launch(const CommandRequest &request)
{
    QList<QByteArray> arguments = argumentsOf(request);
    QList<QByteArray> environment = environmentWith(request.environment);
    if (hasNul(arguments) || hasNul(environment))
        return u"The text contains a NUL character, which cannot be handed to a program."_s;

    const bool isMerged = request.output == CommandRequest::Output::merged;
    Pipe output = makePipe();
    if (isMerged)
        ::fcntl(output.writeEnd.number(), F_SETPIPE_SZ, mergedPipeSize);
    Pipe errorOutput = isMerged || !output.readEnd.isValid() ? Pipe() : makePipe();
    const Descriptor &errorEnd = isMerged ? output.writeEnd : errorOutput.writeEnd;
    if (!errorEnd.isValid())
        return reason(errno, request.program);

    const SpawnSetup setup(output.writeEnd.number(), errorEnd.number());
    Child child { 0, std::move(output.readEnd), std::move(errorOutput.readEnd) };
    std::vector<char *> argv = nullTerminated(arguments);
    std::vector<char *> envp = nullTerminated(environment);
    const int error = posix_spawn(&child.pid, argv.front(), &setup.actions, &setup.attributes,
                                  argv.data(), envp.data());
    if (error != 0)
        return reason(error, request.program);
    return child;
}

/// Becomes readable when a waiting thread sees the child exit and lets go of the other end.
Descriptor threadExitDescriptor(pid_t pid)
{
    Pipe pipe = makePipe();
    std::thread([pid, writeEnd = std::move(pipe.writeEnd)] {
        siginfo_t info {};
        int error = 0;
        do
            error = waitid(P_PID, static_cast<id_t>(pid), &info, WEXITED | WNOWAIT);
        while (error != 0 && errno == EINTR);
    }).detach();
    return std::move(pipe.readEnd);
}

/// Becomes readable when the child has exited.
Descriptor exitDescriptor(pid_t pid, CommandRunner::ExitNotice notice)
{
    if (notice == CommandRunner::ExitNotice::pidfd) {
        // The wrapper of glibc 2.36 cannot be called from C++.
        Descriptor pidfd(static_cast<int>(syscall(SYS_pidfd_open, pid, 0)));
        if (pidfd.isValid())
            return pidfd;
    }
    return threadExitDescriptor(pid);
}

/// Releases a child that has exited.
int exitStatus(pid_t pid)
{
    siginfo_t info {};
    waitid(P_PID, static_cast<id_t>(pid), &info, WEXITED);
    return info.si_code == CLD_EXITED ? info.si_status : 128 + info.si_status;
}

/// What the pipe holds, also when something in the background keeps it open.
QByteArray content(const Descriptor &pipe)
{
    int available = 0;
    if (!pipe.isValid() || ioctl(pipe.number(), FIONREAD, &available) != 0 || available == 0)
        return {};
    QByteArray bytes(available, Qt::Uninitialized);
    const ssize_t size = read(pipe.number(), bytes.data(), static_cast<std::size_t>(available));
    bytes.resize(std::max<ssize_t>(0, size));
    return bytes;
}

/// Reads a pipe until nobody has it open for writing, then deletes itself.
class Drain final : public QObject
{
public:
    Drain(Descriptor pipe, QObject *parent)
        : QObject(parent)
        , m_pipe(std::move(pipe))
        , m_notifier(m_pipe.number(), QSocketNotifier::Read)
    {
        connect(&m_notifier, &QSocketNotifier::activated, this, &Drain::drop);
    }

private:
    void drop()
    {
        std::array<char, 16384> bytes;
        if (read(m_pipe.number(), bytes.data(), bytes.size()) > 0)
            return;
        m_notifier.setEnabled(false);
        deleteLater();
    }

    Descriptor m_pipe;
    QSocketNotifier m_notifier;
};

/// Reports the child's end, then deletes itself.
class RunningCommand final : public QObject
{
public:
    RunningCommand(Child child, Descriptor exit, CommandRunner::Done done, QObject *parent)
        : QObject(parent)
        , m_child(std::move(child))
        , m_done(std::move(done))
        , m_exit(std::move(exit))
        , m_exitNotifier(m_exit.number(), QSocketNotifier::Read)
    {
        connect(&m_exitNotifier, &QSocketNotifier::activated, this, &RunningCommand::finish);
    }

private:
    void finish()
    {
        m_exitNotifier.setEnabled(false);
        deleteLater();
        const CommandRunner::Done done = std::move(m_done); // may outlive this object
        CommandResult result;
        result.exitStatus = exitStatus(m_child.pid);
        result.output = content(m_child.output);
        result.errorOutput = content(m_child.errorOutput);
        for (Descriptor *pipe : { &m_child.output, &m_child.errorOutput }) {
            if (pipe->isValid())
                new Drain(std::move(*pipe), parent());
        }
        done(result);
    }

    Child m_child;
    CommandRunner::Done m_done;
    Descriptor m_exit;
    QSocketNotifier m_exitNotifier;
};

}

CommandRunner::CommandRunner(ExitNotice exitNotice, QObject *parent)
    : QObject(parent)
    , m_exitNotice(exitNotice)
{
    // Ignored, as whoever started the process may have left it, exit statuses would be lost.
    struct sigaction inherited = {};
    if (sigaction(SIGCHLD, nullptr, &inherited) == 0 && inherited.sa_handler == SIG_IGN)
        std::signal(SIGCHLD, SIG_DFL);
}

void CommandRunner::run(const CommandRequest &request, Done done)
{
    auto launched = launch(request);
    if (auto *child = std::get_if<Child>(&launched)) {
        Descriptor exit = exitDescriptor(child->pid, m_exitNotice);
        new RunningCommand(std::move(*child), std::move(exit), std::move(done), this);
        return;
    }
    CommandResult failed;
    failed.launchError = std::get<QString>(std::move(launched));
    QMetaObject::invokeMethod(
        this, [failed, done = std::move(done)] { done(failed); }, Qt::QueuedConnection);
}

}
