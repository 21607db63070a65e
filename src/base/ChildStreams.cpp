// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "base/ChildStreams.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

namespace Tessel {

namespace {

using Output = CommandRequest::Output;

/// A descriptor with the number of one that the child gets would be replaced there by another.
Descriptor aboveStreams(int number)
{
    constexpr int furtherInput = STDERR_FILENO + 1;
    Descriptor descriptor(number);
    if (number < 0 || number > furtherInput)
        return descriptor;
    return Descriptor(fcntl(number, F_DUPFD_CLOEXEC, furtherInput + 1));
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
bool openInput(const std::optional<QByteArray> &input, Descriptor &child)
{
    if (input)
        child = openBytes(*input);
    return !input || child.isValid();
}

/// False, with errno set, on failure.
bool openOutput(Output output, Descriptor &child, Descriptor &own)
{
    if (output == Output::inherited || output == Output::merged)
        return true;
    if (output == Output::nothing) {
        child = openNothing();
    } else if (std::array<int, 2> pipe {}; pipe2(pipe.data(), O_CLOEXEC) == 0) {
        own = aboveStreams(pipe[0]);
        child = aboveStreams(pipe[1]);
    }
    return child.isValid();
}

}

std::optional<ChildStreams> ChildStreams::open(const CommandRequest &request)
{
    ChildStreams streams { .isMerged = request.errorOutput == Output::merged };
    if (!openInput(request.input, streams.childInput)
        || !openInput(request.furtherInput, streams.childFurtherInput)
        || !openOutput(request.output, streams.childOutput, streams.output)
        || !openOutput(request.errorOutput, streams.childErrorOutput, streams.errorOutput))
        return {};
    return streams;
}

std::array<int, 4> ChildStreams::numbers() const
{
    return { childInput.number(), childOutput.number(),
             isMerged ? STDOUT_FILENO : childErrorOutput.number(), childFurtherInput.number() };
}

}
