// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace Tessel {

/// The way of a program into the background. Its caller waits until it is known whether that went
/// well, and no longer: `text=$(echo a | pbcopy)` must not wait for the end of what goes on.
class Detachment final
{
public:
    /// Forks, so it has to come before threads, connections and the application object. Returns in
    /// the child only, a session of its own that has inherited no more than the standard streams.
    /// The parent exits with what the child reports.
    [[nodiscard]] static Detachment begin();

    /// The parent exits with 0. Standard streams and current folder are let go.
    void succeed();

    /// The parent prints the line to standard error and exits with 1; so does the child.
    [[noreturn]] void fail(const QString &line);

private:
    explicit Detachment(int report)
        : m_report(report)
    {
    }

    int m_report; ///< the pipe to the parent
};

}
