// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "base/Log.h"

#include "base/Descriptor.h"
#include "base/TextRules.h"

#include <QByteArray>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace Tessel {

namespace {

/// Milliseconds for a reader who is only slow; one who has stopped costs them once.
constexpr int maxWait = 100;

std::function<void(QStringView)> &sink()
{
    static std::function<void(QStringView)> installed;
    return installed;
}

/// Another way into a pipe or terminal, which can be told not to wait: for standard output itself
/// that would hold for everybody who has it. Not valid for files, which never wait, and sockets.
Descriptor ownWayOut()
{
    const bool isFile = lseek(STDOUT_FILENO, 0, SEEK_CUR) >= 0;
    return Descriptor(
        isFile ? -1 : open("/proc/self/fd/1", O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
}

ssize_t writeSome(const Descriptor &own, const char *bytes, std::size_t size)
{
    if (own.isValid())
        return write(own.number(), bytes, size);
    const ssize_t sent = send(STDOUT_FILENO, bytes, size, MSG_DONTWAIT);
    return sent < 0 && errno == ENOTSOCK ? write(STDOUT_FILENO, bytes, size) : sent;
}

/// How many bytes went out. It waits so many milliseconds for whoever reads them.
qsizetype writeAvailable(const QByteArray &bytes, int patience)
{
    const Descriptor own = ownWayOut();
    pollfd room { .fd = STDOUT_FILENO, .events = POLLOUT, .revents = 0 };
    qsizetype sum = 0;
    while (sum < bytes.size() && poll(&room, 1, patience) == 1) {
        // So much fits into a pipe that has any room.
        const auto part = std::min<qsizetype>(bytes.size() - sum, PIPE_BUF);
        const ssize_t written
            = writeSome(own, bytes.constData() + sum, static_cast<std::size_t>(part));
        if (written < 0)
            break;
        sum += written;
    }
    return sum;
}

}

void Log::print(QStringView line)
{
    if (sink())
        return sink()(line);
    // Children get the default disposition back.
    [[maybe_unused]] static const auto previous = std::signal(SIGPIPE, SIG_IGN);
    // A captured text may hold commands for a terminal. Files and pipes get it exactly.
    static const bool isTerminal = isatty(STDOUT_FILENO) != 0;
    static qsizetype missing = 0; ///< bytes of the last line
    static bool isCut = false; ///< the last line that anything was written of, in its middle
    const QString shown = isTerminal ? withControlPictures(line.toString()) : line.toString();
    const QByteArray bytes = (isCut ? "\n" : "") + shown.toUtf8() + '\n';
    const qsizetype written = writeAvailable(bytes, missing > 0 ? 0 : maxWait);
    missing = bytes.size() - written;
    isCut = written > 0 ? missing > 0 : isCut;
}

void Log::setSink(std::function<void(QStringView)> newSink)
{
    sink() = std::move(newSink);
}

}
