// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "lib/support/ChildLifetime.h"

#include <QProcess>

#include <csignal>

#include <sys/prctl.h>
#include <unistd.h>

namespace Tessel {

void endWithParent(QProcess &process)
{
    process.setChildProcessModifier([parent = getpid()] {
        prctl(PR_SET_PDEATHSIG, SIGTERM);
        if (getppid() != parent) // it ended before the line above
            _exit(EXIT_FAILURE);
    });
}

}
