// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "base/ChildStreams.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

namespace Tessel {

namespace {

using Output = CommandRequest::Output;

/// Where this process has closed a standard stream, a new descriptor would take its place, and in
/// the child be replaced by another stream.
Descriptor aboveStreams(int number)
{
    Descriptor descriptor(number);
    if (number < 0 || number > STDERR_FILENO)
        return descriptor;
    return Descriptor(fcntl(number, F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
}

Descriptor openNothing()
{
    return aboveStreams(open("/dev/null", O_RDWR | O_CLOEXEC));
}

/// An anonymous file: unlike a pipe it waits for no reader.
Descriptor openBytes(const QByteArray &bytes)
{
    if (bytes.isEmpty())
        return openNothing();
    Descriptor file = aboveStreams(memfd_create("input", MFD_CLOEXEC));
    for (qsizetype written = 0; file.isValid() && written < bytes.size();) {
        const ssize_t size = pwrite(file.number(), bytes.constData() + written,
                                    static_cast<std::size_t>(bytes.size() - written), written);
        if (size <= 0)
            return {};
        written += size;
    }
    return file;
}

/// False, with errno set, on failure.
bool openOutput(Output output, int pipeSize, Descriptor &child, Descriptor &own)
{
    if (output == Output::inherited || output == Output::merged)
        return true;
    if (output == Output::nothing) {
        child = openNothing();
    } else if (std::array<int, 2> pipe {}; pipe2(pipe.data(), O_CLOEXEC) == 0) {
        own = aboveStreams(pipe[0]);
        child = aboveStreams(pipe[1]);
        fcntl(child.number(), F_SETPIPE_SZ, pipeSize);
    }
    return child.isValid();
}

}

std::optional<ChildStreams> ChildStreams::open(const CommandRequest &request)
{
    ChildStreams streams { .isMerged = request.errorOutput == Output::merged };
    if (request.input)
        streams.childInput = openBytes(*request.input);
    if ((request.input && !streams.childInput.isValid())
        || !openOutput(request.output, request.pipeSize, streams.childOutput, streams.output)
        || !openOutput(request.errorOutput, request.pipeSize, streams.childErrorOutput,
                       streams.errorOutput))
        return {};
    return streams;
}

std::array<int, 3> ChildStreams::numbers() const
{
    return { childInput.number(), childOutput.number(),
             isMerged ? STDOUT_FILENO : childErrorOutput.number() };
}

}
