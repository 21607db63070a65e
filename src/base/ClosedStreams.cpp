// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "base/ClosedStreams.h"

#include <fcntl.h>
#include <unistd.h>

namespace Tessel {

void occupyClosedStreams()
{
    for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream) {
        if (fcntl(stream, F_GETFD) >= 0)
            continue;
        // The lowest free number, opened for the direction in which nobody uses it.
        [[maybe_unused]] const int same
            = open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
    }
}

}
