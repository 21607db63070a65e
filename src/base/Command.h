// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

#include <optional>

namespace Tessel {

/// A program to run and what it gets. It has no descriptors but those named here, and no signal
/// ignored or blocked.
struct CommandRequest
{
    /// Where a stream goes: into a pipe that is read, where this process's own goes, nowhere, or,
    /// for standard error, where standard output goes.
    enum class Output { captured, inherited, nothing, merged };
    /// The process group. Whoever has one of its own is killed with all that is in it.
    enum class Group { inherited, own, ownSession };

    QString program; ///< a path; a name without a slash is looked for on the PATH
    QStringList arguments = {};
    /// Set on top of the process's own; a variable without a value is taken out.
    QMap<QString, std::optional<QString>> environment = {};
    QString workingFolder = {}; ///< empty: the process's own
    std::optional<QByteArray> input = {}; ///< on standard input; without: the process's own
    std::optional<QByteArray> furtherInput = {}; ///< on descriptor 3, which is closed without
    Output output = Output::captured;
    Output errorOutput = Output::captured;
    Group group = Group::inherited;
    bool endsWithParent = false; ///< by SIGTERM, however this process ends
    /// Bytes that a stream takes, or some more, before the program has to wait for a reader.
    int pipeSize = 64 << 10;
};

/// What became of a program that was started.
struct CommandResult
{
    int exitStatus = 0; ///< 0 to 255; 128 + n when signal n ended the program, as shells have it
    bool isEndedBySignal = false;
    QByteArray output; ///< of both streams when they are merged
    QByteArray errorOutput;
};

}
