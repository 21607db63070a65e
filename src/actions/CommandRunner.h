// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QMap>
#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace Tessel {

struct CommandRequest
{
    /// Whether standard output and standard error have a pipe each or share one.
    enum class Output { separate, merged };

    QString program; ///< a path, not looked for on the PATH
    QStringList arguments;
    QMap<QString, QString> environment; ///< set on top of the process's own
    Output output = Output::separate;
};

struct CommandResult
{
    /// Why the program could not be started, in words. The other members then mean nothing.
    std::optional<QString> launchError;
    int exitStatus = 0; ///< 0 to 255; 128 + n when signal n ended the program, as shells have it
    QByteArray output; ///< of both streams when they are merged
    QByteArray errorOutput;
};

/// Runs programs side by side, as many as are asked for, without a thread for each.
///
/// Children have the process's standard input, pipes as standard output and standard error, no
/// other descriptors, and no signal ignored or blocked. There is no time limit, and nothing is read
/// before the child has exited: one that writes more than a pipe holds (64 KiB, or 256 KiB when
/// merged) never does.
///
/// Programs that a command leaves in the background do not delay its result, which has what was
/// written until the command itself exited. What they write later is read and dropped, so that they
/// neither block nor die of SIGPIPE.
///
/// Destroying the runner forgets the children; they live on. Main thread only.
class CommandRunner final : public QObject
{
    Q_OBJECT

public:
    using Done = std::function<void(const CommandResult &)>;

    /// How the end of a child is noticed: by a pidfd (Linux 5.3) or, as happens by itself where the
    /// kernel has none, by a thread that waits.
    enum class ExitNotice { pidfd, thread };

    explicit CommandRunner(ExitNotice exitNotice = ExitNotice::pidfd, QObject *parent = nullptr);

    /// Returns at once. The result comes from the event loop, also when the launch fails.
    void run(const CommandRequest &request, Done done);

private:
    ExitNotice m_exitNotice;
};

}
