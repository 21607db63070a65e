// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "base/ChildProcess.h"

#include "base/ChildStreams.h"
#include "base/ExecStrings.h"
#include "base/Spawn.h"

#include <QStandardPaths>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <vector>

#include <poll.h>
#include <sys/ioctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

Failure failure(int error, const QString &program)
{
    return { program + u": "_s + QString::fromLocal8Bit(std::strerror(error)) };
}

/// Ignored, as whoever started the process may have left it, exit statuses would be lost.
void keepExitStatuses()
{
    struct sigaction inherited = {};
    if (sigaction(SIGCHLD, nullptr, &inherited) == 0 && inherited.sa_handler == SIG_IGN)
        std::signal(SIGCHLD, SIG_DFL);
}

/// The child, started with what the plan says about streams and ties.
Result<pid_t> launch(const CommandRequest &request, SpawnPlan plan)
{
    const bool isPath = request.program.contains(u'/');
    const QString path = isPath ? request.program : QStandardPaths::findExecutable(request.program);
    if (path.isEmpty())
        return failure(ENOENT, request.program);
    ExecStrings strings(path, request);
    if (const auto checked = strings.check(); !checked)
        return checked.error();
    const QByteArray folder = request.workingFolder.toUtf8();
    std::vector<char *> argv = nullTerminated(strings.arguments);
    std::vector<char *> envp = nullTerminated(strings.environment);
    plan.arguments = argv.data();
    plan.environment = envp.data();
    plan.workingFolder = folder.isEmpty() ? nullptr : folder.constData();
    keepExitStatuses();
    const Spawned spawned = spawn(plan);
    if (spawned.error != 0)
        return failure(spawned.error, request.program);
    return spawned.child;
}

/// What the pipe holds.
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

}

bool canBeHandedOver(const CommandRequest &request)
{
    return bool(ExecStrings(request.program, request).check());
}

Result<ChildProcess> ChildProcess::start(const CommandRequest &request)
{
    auto streams = ChildStreams::open(request);
    if (!streams)
        return failure(errno, request.program);
    const Result<pid_t> id = launch(request,
                                    { .streams = streams->numbers(),
                                      .group = request.group,
                                      .endsWithParent = request.endsWithParent });
    if (!id)
        return id.error();

    ChildProcess child;
    child.m_id = *id;
    child.m_hasOwnGroup = request.group != CommandRequest::Group::inherited;
    child.m_output = std::move(streams->output);
    child.m_errorOutput = std::move(streams->errorOutput);
    // The wrapper of glibc 2.36 cannot be called from C++.
    child.m_exit = Descriptor(static_cast<int>(syscall(SYS_pidfd_open, child.m_id, 0)));
    if (child.m_exit.isValid())
        return child;
    const int error = errno;
    child.kill();
    static_cast<void>(child.takeResult());
    return failure(error, request.program);
}

void ChildProcess::kill() const
{
    if (m_id > 0)
        ::kill(m_hasOwnGroup ? -m_id : m_id, SIGKILL);
}

bool ChildProcess::waitForExit(QDeadlineTimer deadline) const
{
    pollfd waiting { m_exit.number(), POLLIN, 0 };
    int ready = 0;
    do
        ready = poll(&waiting, 1, static_cast<int>(deadline.remainingTime()));
    while (ready < 0 && errno == EINTR);
    return ready > 0;
}

CommandResult ChildProcess::takeResult()
{
    siginfo_t info {};
    int error = 0;
    do
        error = waitid(P_PID, static_cast<id_t>(m_id), &info, WEXITED);
    while (error != 0 && errno == EINTR);
    m_id = 0;
    const bool isEndedBySignal = info.si_code != CLD_EXITED;
    return { isEndedBySignal ? 128 + info.si_status : info.si_status, isEndedBySignal,
             content(m_output), content(m_errorOutput) };
}

Result<void> startDetached(CommandRequest request)
{
    request.input = QByteArray();
    request.output = CommandRequest::Output::nothing;
    request.errorOutput = CommandRequest::Output::nothing;
    const auto streams = ChildStreams::open(request);
    if (!streams)
        return failure(errno, request.program);
    const Result<pid_t> started = launch(request,
                                         { .streams = streams->numbers(),
                                           .group = CommandRequest::Group::ownSession,
                                           .isDetached = true });
    if (!started)
        return Failure { request.program + u" could not be started: "_s + started.error().reason };
    return {};
}

}
