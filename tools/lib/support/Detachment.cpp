// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "lib/support/Detachment.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <fcntl.h>
#include <unistd.h>

namespace Tessel {

namespace {

constexpr char success = '\0'; ///< in place of a line for standard error

[[noreturn]] void exitWith(const QByteArray &line)
{
    std::fputs(line.constData(), stderr);
    std::_Exit(EXIT_FAILURE);
}

/// Waits for the child's report and ends the process with it.
[[noreturn]] void relay(int report)
{
    QByteArray line;
    std::array<char, 1024> bytes;
    ssize_t size = 0;
    while ((size = read(report, bytes.data(), bytes.size())) > 0 || (size < 0 && errno == EINTR))
        line.append(bytes.data(), std::max<ssize_t>(0, size));
    if (line.startsWith(success))
        std::_Exit(EXIT_SUCCESS);
    exitWith(line.isEmpty() ? QByteArray("the process in the background ended early\n") : line);
}

}

Detachment Detachment::begin()
{
    std::array<int, 2> ends = { -1, -1 };
    const pid_t child = pipe2(ends.data(), O_CLOEXEC) == 0 ? fork() : -1;
    if (child < 0)
        exitWith(QByteArray(std::strerror(errno)) + '\n');
    if (child > 0) {
        close(ends[1]);
        relay(ends[0]);
    }
    setsid();
    constexpr int report = STDERR_FILENO + 1;
    if (ends[1] != report)
        dup3(ends[1], report, O_CLOEXEC);
    closefrom(report + 1);
    return Detachment(report);
}

void Detachment::succeed()
{
    const int nothing = open("/dev/null", O_RDWR | O_CLOEXEC);
    for (const int stream : { STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO })
        dup2(nothing, stream);
    close(nothing);
    [[maybe_unused]] const int unchanged = chdir("/");
    [[maybe_unused]] const ssize_t lost = write(m_report, &success, 1);
    close(m_report);
}

void Detachment::fail(const QString &line)
{
    const QByteArray bytes = line.toUtf8() + '\n';
    [[maybe_unused]] const ssize_t lost
        = write(m_report, bytes.constData(), static_cast<std::size_t>(bytes.size()));
    std::_Exit(EXIT_FAILURE);
}

}
