// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "base/RunCommand.h"

#include <array>
#include <cerrno>
#include <limits>

#include <poll.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

enum class Until { exit, endOfOutput };

/// False at the end of the stream.
bool readSome(int pipe, QByteArray &bytes)
{
    std::array<char, 65536> buffer;
    const ssize_t size = read(pipe, buffer.data(), buffer.size());
    if (size > 0)
        bytes.append(buffer.data(), size);
    return size > 0 || (size < 0 && errno == EINTR);
}

Result<CommandResult> collect(ChildProcess &child, Until until, qsizetype maxOutput)
{
    std::array<QByteArray, 2> bytes;
    const int exit = until == Until::exit ? child.exit().number() : -1;
    std::array<pollfd, 3> waiting { pollfd { child.output().number(), POLLIN, 0 },
                                    pollfd { child.errorOutput().number(), POLLIN, 0 },
                                    pollfd { exit, POLLIN, 0 } }; // negative ones are passed over
    const auto isOver = [&] {
        return until == Until::exit ? waiting[2].revents != 0
                                    : waiting[0].fd < 0 && waiting[1].fd < 0;
    };
    while (!isOver()) {
        if (poll(waiting.data(), waiting.size(), -1) < 0)
            continue;
        for (std::size_t i = 0; i < bytes.size(); ++i) {
            if (waiting.at(i).revents != 0 && !readSome(waiting.at(i).fd, bytes.at(i)))
                waiting.at(i).fd = -1;
            if (bytes.at(i).size() <= maxOutput)
                continue;
            child.kill();
            static_cast<void>(child.takeResult());
            return Failure { u"The program writes more than %1 bytes."_s.arg(maxOutput) };
        }
    }
    CommandResult result = child.takeResult();
    result.output.prepend(bytes[0]);
    result.errorOutput.prepend(bytes[1]);
    return result;
}

}

Result<CommandResult> runCommand(const CommandRequest &request)
{
    auto child = ChildProcess::start(request);
    if (!child)
        return child.error();
    return collect(*child, Until::exit, std::numeric_limits<qsizetype>::max());
}

Result<CommandResult> readToEnd(ChildProcess &child, qsizetype maxOutput)
{
    return collect(child, Until::endOfOutput, maxOutput);
}

}
