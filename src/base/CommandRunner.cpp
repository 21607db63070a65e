// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "base/CommandRunner.h"

#include "base/ChildProcess.h"

#include <QSocketNotifier>
#include <QTimer>

#include <array>
#include <chrono>
#include <utility>

#include <unistd.h>

using namespace std::chrono_literals;

namespace Tessel {

namespace {

/// Reads a pipe until nobody has it open for writing, then deletes itself. With pauses: a program
/// that writes without end is held up, instead of taking the computer's time together with us.
class Drain final : public QObject
{
public:
    Drain(Descriptor pipe, QObject *parent)
        : QObject(parent)
        , m_pipe(std::move(pipe))
        , m_notifier(m_pipe.number(), QSocketNotifier::Read)
    {
        connect(&m_notifier, &QSocketNotifier::activated, this, &Drain::drop);
    }

private:
    void drop()
    {
        std::array<char, 65536> bytes;
        m_notifier.setEnabled(false);
        if (read(m_pipe.number(), bytes.data(), bytes.size()) > 0)
            QTimer::singleShot(pause, this, [this] { m_notifier.setEnabled(true); });
        else
            deleteLater();
    }

    static constexpr auto pause = 100ms;

    Descriptor m_pipe;
    QSocketNotifier m_notifier;
};

/// Reports the child's end, then deletes itself.
class RunningCommand final : public QObject
{
public:
    RunningCommand(ChildProcess child, CommandRunner::Done done, QObject *parent)
        : QObject(parent)
        , m_child(std::move(child))
        , m_done(std::move(done))
        , m_exitNotifier(m_child.exit().number(), QSocketNotifier::Read)
    {
        connect(&m_exitNotifier, &QSocketNotifier::activated, this, &RunningCommand::finish);
    }

    void kill() const { m_child.kill(); }

private:
    void finish()
    {
        m_exitNotifier.setEnabled(false);
        deleteLater();
        const CommandRunner::Done done = std::move(m_done); // may outlive this object
        const CommandResult result = m_child.takeResult();
        for (Descriptor *pipe : { &m_child.output(), &m_child.errorOutput() }) {
            if (pipe->isValid())
                new Drain(std::move(*pipe), parent());
        }
        done(result);
    }

    ChildProcess m_child;
    CommandRunner::Done m_done;
    QSocketNotifier m_exitNotifier;
};

}

void CommandRunner::run(const CommandRequest &request, Done done)
{
    auto child = ChildProcess::start(request);
    if (child) {
        new RunningCommand(*std::move(child), std::move(done), this);
        return;
    }
    QMetaObject::invokeMethod(
        this, [failure = child.error(), done = std::move(done)] { done(failure); },
        Qt::QueuedConnection);
}

void CommandRunner::killAll()
{
    for (const QObject *child : std::as_const(children())) {
        if (const auto *running = dynamic_cast<const RunningCommand *>(child))
            running->kill();
    }
}

}
