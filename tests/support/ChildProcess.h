// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QProcess>
#include <QRegularExpression>

#include <chrono>

namespace Tessel::Desktop {

// A wait in a test is bounded by this; generous, because a busy machine must not fail a test.
inline constexpr std::chrono::milliseconds defaultTimeout { 15000 };

// A program that runs in a process group of its own and does not outlive the test: the group is
// ended by the destructor, and by the kernel when the test itself dies.
class ChildProcess final
{
public:
    ChildProcess();
    ~ChildProcess();
    Q_DISABLE_COPY_MOVE(ChildProcess)

    // False when the program cannot be executed.
    [[nodiscard]] bool start(const QString &program, const QStringList &arguments,
                             const QProcessEnvironment &environment, const QString &workingFolder);

    [[nodiscard]] bool isRunning() const;
    [[nodiscard]] qint64 processId() const;
    // Meaningful once the program has ended by itself; -1 when it was killed by a signal.
    [[nodiscard]] int exitCode() const;

    // Everything written so far.
    [[nodiscard]] QString output() const;
    [[nodiscard]] QString errorOutput() const;

    // Waits until standard output matches somewhere behind the previous match of this function, so
    // that a line awaited twice has to come twice. No match after the timeout, or once the program
    // has ended without writing it.
    QRegularExpressionMatch waitForOutput(const QRegularExpression &pattern,
                                          std::chrono::milliseconds timeout = defaultTimeout);
    [[nodiscard]] bool waitForExit(std::chrono::milliseconds timeout = defaultTimeout);

    // Asks the group to terminate and kills what is left of it after two seconds.
    void end();

private:
    void read();

    QProcess m_process;
    QByteArray m_output;
    QByteArray m_errorOutput;
    qsizetype m_lookedAt = 0;
    qint64 m_processId = 0;
};

}
