// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "support/ChildProcess.h"

#include <QTest>

#include <csignal>

#include <sys/prctl.h>
#include <unistd.h>

namespace Tessel::Desktop {

namespace {

constexpr int terminationGraceMs = 2000;

int milliseconds(std::chrono::milliseconds timeout)
{
    return static_cast<int>(timeout.count());
}

}

ChildProcess::ChildProcess()
{
    m_process.setChildProcessModifier([] {
        ::setpgid(0, 0);
        ::prctl(PR_SET_PDEATHSIG, SIGTERM);
    });
    QObject::connect(&m_process, &QProcess::readyRead, &m_process, [this] { read(); });
    QObject::connect(&m_process, &QProcess::readyReadStandardError, &m_process, [this] { read(); });
}

ChildProcess::~ChildProcess()
{
    end();
}

bool ChildProcess::start(const QString &program, const QStringList &arguments,
                         const QProcessEnvironment &environment, const QString &workingFolder)
{
    m_process.setProcessEnvironment(environment);
    m_process.setWorkingDirectory(workingFolder);
    m_process.start(program, arguments);
    if (!m_process.waitForStarted(milliseconds(defaultTimeout)))
        return false;
    m_processId = m_process.processId();
    return true;
}

bool ChildProcess::isRunning() const
{
    return m_process.state() != QProcess::NotRunning;
}

qint64 ChildProcess::processId() const
{
    return m_processId;
}

int ChildProcess::exitCode() const
{
    return m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
}

QString ChildProcess::output() const
{
    return QString::fromUtf8(m_output);
}

QString ChildProcess::errorOutput() const
{
    return QString::fromUtf8(m_errorOutput);
}

QRegularExpressionMatch ChildProcess::waitForOutput(const QRegularExpression &pattern,
                                                    std::chrono::milliseconds timeout)
{
    QRegularExpressionMatch match;
    const auto matchesOrEnded = [&] {
        const bool ended = !isRunning();
        match = pattern.match(output(), m_lookedAt);
        return match.hasMatch() || ended;
    };
    if (QTest::qWaitFor(matchesOrEnded, milliseconds(timeout)) && match.hasMatch())
        m_lookedAt = match.capturedEnd();
    return match;
}

bool ChildProcess::waitForExit(std::chrono::milliseconds timeout)
{
    return QTest::qWaitFor([this] { return !isRunning(); }, milliseconds(timeout));
}

void ChildProcess::end()
{
    if (!isRunning())
        return;
    const auto group = static_cast<pid_t>(-m_processId);
    ::kill(group, SIGTERM);
    if (!m_process.waitForFinished(terminationGraceMs)) {
        ::kill(group, SIGKILL);
        m_process.waitForFinished(terminationGraceMs);
    }
    read();
}

void ChildProcess::read()
{
    m_output += m_process.readAllStandardOutput();
    m_errorOutput += m_process.readAllStandardError();
}

}
