// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Command.h"
#include "base/Result.h"

#include <QObject>

#include <functional>

namespace Tessel {

/// Runs programs side by side, as many as are asked for, on the event loop: without a thread, and
/// without waiting.
///
/// There is no time limit, and no more than the request's `pipeSize` is read of a stream before the
/// child has exited: one that writes more, and more than a pipe holds, never does.
///
/// Programs that a command leaves in the background do not delay its result, which has what was
/// written until the command itself exited. What they write later is read and dropped, so that they
/// do not die of SIGPIPE and get on, by 640 KiB a second.
///
/// Destroying the runner forgets the children; they live on. Main thread only.
class CommandRunner final : public QObject
{
    Q_OBJECT

public:
    using Done = std::function<void(const Result<CommandResult> &)>;

    using QObject::QObject;

    /// Returns at once. The result comes from the event loop, also when the program cannot be
    /// started.
    void run(const CommandRequest &request, Done done);

    /// Kills the children that run. Their results come as ever.
    void killAll();
};

}
