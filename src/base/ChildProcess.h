// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Command.h"
#include "base/Descriptor.h"
#include "base/Result.h"

#include <QDeadlineTimer>

#include <sys/types.h>

namespace Tessel {

/// Whether a program can get the request's arguments and variables: their size has limits, for each
/// and for all of them, and a NUL would end one.
[[nodiscard]] bool canBeHandedOver(const CommandRequest &request);

/// A program that was started. Destroying it forgets the program, which lives on.
///
/// Not QProcess, which hands its own descriptors and ignored signals on, reads without a bound
/// while the program runs, and ends the program when it is destroyed.
class ChildProcess final
{
public:
    [[nodiscard]] static Result<ChildProcess> start(const CommandRequest &request);

    [[nodiscard]] pid_t id() const { return m_id; }
    /// SIGKILL, for its whole group when that is its own. Without effect once the result is taken.
    void kill() const;

    /// Readable once the program has ended (pidfd_open(2)).
    [[nodiscard]] const Descriptor &exit() const { return m_exit; }
    /// False when the time is up first.
    [[nodiscard]] bool waitForExit(QDeadlineTimer deadline) const;

    /// Our ends of the pipes; not valid where nothing is captured.
    [[nodiscard]] Descriptor &output() { return m_output; }
    [[nodiscard]] Descriptor &errorOutput() { return m_errorOutput; }

    /// To be called once; waits for the program's end. Has what the pipes hold then, also when
    /// something in the background keeps them open.
    [[nodiscard]] CommandResult takeResult();

private:
    ChildProcess() = default;

    pid_t m_id = 0;
    bool m_hasOwnGroup = false;
    Descriptor m_exit;
    Descriptor m_output;
    Descriptor m_errorOutput;
};

/// Starts a program that goes its own way: in a session of its own and nobody's child. Its streams
/// lead nowhere, whatever the request says about them.
[[nodiscard]] Result<void> startDetached(CommandRequest request);

}
