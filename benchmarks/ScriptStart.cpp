// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include <benchmark/benchmark.h>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>


namespace {

/// Without output, so that only starting, reading, running and ending are in the figure.
void runScript(benchmark::State &state)
{
    char program[] = OSASCRIPT;
    char option[] = "-e";
    char script[] = "set x to word 2 of \"one two\"\ndelay 0";
    char *arguments[] { program, option, script, nullptr };
    for ([[maybe_unused]] auto _ : state) {
        pid_t child = 0;
        int status = -1;
        if (posix_spawn(&child, program, nullptr, nullptr, arguments, environ) == 0)
            waitpid(child, &status, 0);
        if (status != 0)
            state.SkipWithError("the script failed");
    }
}
BENCHMARK(runScript)->UseRealTime()->Unit(benchmark::kMillisecond);

}

BENCHMARK_MAIN();
