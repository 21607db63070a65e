// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/runtime/ShellCommand.h"

#include "osascript/values/ScriptError.h"
#include "osascript/values/Value.h"

#include <QByteArray>

#include <array>
#include <cerrno>
#include <csignal>
#include <utility>

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace Tessel::Osascript {

namespace {

constexpr qsizetype mostOutput = 64 << 20; // bytes

/// The process group to end with this program; 0: none.
volatile sig_atomic_t runningGroup = 0;

constexpr int endingSignals[] { SIGTERM, SIGINT, SIGHUP };

void endChildrenAndSelf(int signal)
{
    if (runningGroup > 0)
        kill(-static_cast<pid_t>(runningGroup), SIGTERM);
    // The action was reset when the handler was entered.
    raise(signal);
}

void installHandlers()
{
    struct sigaction action
    {
    };
    action.sa_handler = endChildrenAndSelf;
    action.sa_flags = static_cast<int>(SA_RESETHAND | SA_NODEFER);
    for (const int signal : endingSignals)
        sigaction(signal, &action, nullptr);
}

class Pipe final
{
public:
    Pipe() { m_isOpen = pipe2(m_ends.data(), O_CLOEXEC) == 0; }
    ~Pipe()
    {
        closeEnd(0);
        closeEnd(1);
    }
    Q_DISABLE_COPY_MOVE(Pipe)

    [[nodiscard]] bool isOpen() const { return m_isOpen; }
    [[nodiscard]] int readEnd() const { return m_ends[0]; }
    [[nodiscard]] int writeEnd() const { return m_ends[1]; }
    void closeEnd(size_t end)
    {
        if (m_ends.at(end) >= 0)
            close(std::exchange(m_ends.at(end), -1));
    }

private:
    std::array<int, 2> m_ends { -1, -1 };
    bool m_isOpen = false;
};

[[noreturn]] void runShell(const char *command, const Pipe &output, const Pipe &errors)
{
    for (const int signal : endingSignals)
        std::signal(signal, SIG_DFL);
    setpgid(0, 0);
    prctl(PR_SET_PDEATHSIG, SIGTERM); // should this program be killed outright
    const int nothing = open("/dev/null", O_RDONLY | O_CLOEXEC);
    dup2(nothing, STDIN_FILENO);
    dup2(output.writeEnd(), STDOUT_FILENO);
    dup2(errors.writeEnd(), STDERR_FILENO);
    execl("/bin/sh", "sh", "-c", command, nullptr);
    _exit(127);
}

/// False at the end of the stream.
bool readSome(int descriptor, QByteArray &bytes)
{
    std::array<char, 65536> buffer {};
    const ssize_t count = read(descriptor, buffer.data(), buffer.size());
    if (count > 0)
        bytes.append(buffer.data(), count);
    if (bytes.size() > mostOutput)
        fail(ScriptError::outOfMemory, u"Out of memory: the command’s output is too long."_s);
    return count > 0 || (count < 0 && errno == EINTR);
}

void readBoth(Pipe &output, Pipe &errors, QByteArray &outputBytes, QByteArray &errorBytes)
{
    while (output.readEnd() >= 0 || errors.readEnd() >= 0) {
        std::array<pollfd, 2> waiting { pollfd { output.readEnd(), POLLIN, 0 },
                                        pollfd { errors.readEnd(), POLLIN, 0 } };
        if (poll(waiting.data(), waiting.size(), -1) < 0 && errno != EINTR)
            return;
        if (waiting[0].revents != 0 && !readSome(output.readEnd(), outputBytes))
            output.closeEnd(0);
        if (waiting[1].revents != 0 && !readSome(errors.readEnd(), errorBytes))
            errors.closeEnd(0);
    }
}

/// Ends the group when reading its output fails.
class RunningGroup final
{
public:
    explicit RunningGroup(pid_t leader)
        : m_leader(leader)
    {
        runningGroup = leader;
    }
    ~RunningGroup()
    {
        if (!m_isOver)
            kill(-m_leader, SIGKILL);
        static_cast<void>(wait());
        runningGroup = 0;
    }
    Q_DISABLE_COPY_MOVE(RunningGroup)

    /// The exit status as a shell tells it.
    int wait()
    {
        while (!m_isOver && waitpid(m_leader, &m_status, 0) < 0 && errno == EINTR) { }
        m_isOver = true;
        return WIFEXITED(m_status) ? WEXITSTATUS(m_status) : 128 + WTERMSIG(m_status);
    }

private:
    pid_t m_leader;
    int m_status = 0;
    bool m_isOver = false;
};

QString withoutLastLineBreak(QString text)
{
    if (text.endsWith(u'\n'))
        text.chop(1);
    return text;
}

}

QString shellOutput(const QString &command, LineEndings lineEndings)
{
    Pipe output;
    Pipe errors;
    const QByteArray bytes = command.toUtf8();
    installHandlers();
    const pid_t child = output.isOpen() && errors.isOpen() ? fork() : -1;
    if (child < 0)
        fail(ScriptError::failed, u"The command cannot be started."_s);
    if (child == 0)
        runShell(bytes.constData(), output, errors);
    setpgid(child, child); // here, too: whoever comes first
    RunningGroup group(child);
    output.closeEnd(1);
    errors.closeEnd(1);
    QByteArray outputBytes;
    QByteArray errorBytes;
    readBoth(output, errors, outputBytes, errorBytes);
    const int status = group.wait();
    if (status != 0) {
        const QString message = withoutLastLineBreak(QString::fromUtf8(errorBytes));
        failWith(status,
                 message.isEmpty() ? u"The command exited with a non-zero status."_s : message);
    }
    const QString text = QString::fromUtf8(outputBytes);
    checkTextSize(text.size());
    return lineEndings == LineEndings::kept ? text
                                            : withoutLastLineBreak(text).replace(u'\n', u'\r');
}

}
