// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "base/Spawn.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

// posix_spawn(3) would do, but for PR_SET_PDEATHSIG. As there, the child borrows the memory of this
// process, which stands still meanwhile, so that nothing is copied: until it has become the program
// it makes system calls only and takes no signal.

namespace Tessel {

namespace {

void resetSignals()
{
    struct sigaction standard = {};
    standard.sa_handler = SIG_DFL;
    for (int number = 1; number < NSIG; ++number)
        sigaction(number, &standard, nullptr); // fails for those that are never ignored
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
}

/// False, with errno set, when something cannot be had.
bool prepare(const SpawnPlan &plan, pid_t parent)
{
    int stream = 0;
    for (const int source : plan.streams) {
        if (source >= 0 && dup2(source, stream) < 0)
            return false;
        ++stream;
    }
    // Libraries open some without close-on-exec.
    closefrom(plan.streams.back() >= 0 ? stream : STDERR_FILENO + 1);
    if (plan.group == CommandRequest::Group::own)
        setpgid(0, 0);
    else if (plan.group == CommandRequest::Group::ownSession)
        setsid();
    if (plan.endsWithParent) {
        prctl(PR_SET_PDEATHSIG, SIGTERM);
        if (getppid() != parent) // it ended before the line above
            _exit(EXIT_FAILURE);
    }
    if (plan.workingFolder && chdir(plan.workingFolder) != 0)
        return false;
    resetSignals();
    return true;
}

/// Ends with the error where it stays a copy of this process.
[[noreturn]] void becomeProgram(const SpawnPlan &plan, pid_t parent, volatile int &error)
{
    if (prepare(plan, parent)) {
        const pid_t program = plan.isDetached ? vfork() : 0;
        if (program > 0)
            _exit(error);
        if (program == 0)
            execve(plan.arguments[0], plan.arguments, plan.environment);
    }
    error = errno;
    _exit(error);
}

}

Spawned spawn(const SpawnPlan &plan)
{
    sigset_t all;
    sigset_t own;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &own);
    volatile int error = 0; // the child writes it
    const pid_t parent = getpid();
    // Not vfork() twice: the address sanitizer keeps the way back of one.
    const pid_t child = plan.isDetached ? fork() : vfork();
    if (child == 0)
        becomeProgram(plan, parent, error);
    if (child < 0)
        error = errno;
    pthread_sigmask(SIG_SETMASK, &own, nullptr);
    if (child > 0 && (plan.isDetached || error != 0)) { // it is not the program
        int status = 0;
        while (waitpid(child, &status, 0) < 0 && errno == EINTR) { }
        error = WEXITSTATUS(status);
    }
    return { child, error };
}

}
