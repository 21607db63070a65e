// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "base/CommandRunner.h"

#include "base/ChildProcess.h"

#include <QSocketNotifier>
#include <QTimer>

#include <algorithm>
#include <array>
#include <chrono>
#include <memory>
#include <utility>

#include <unistd.h>

using namespace std::chrono_literals;

namespace Tessel {

namespace {

/// Makes a pipe larger than the system would (pipe(7), pipe-max-size): keeps what comes until that
/// is enough.
class PipeStore final
{
public:
    PipeStore(const Descriptor &pipe, qsizetype size)
        : m_notifier(pipe.number(), QSocketNotifier::Read)
    {
        QObject::connect(&m_notifier, &QSocketNotifier::activated, &m_notifier,
                         [this, number = pipe.number(), size] { keep(number, size); });
    }

    /// Null for a pipe that is large enough, or not there.
    static std::unique_ptr<PipeStore> make(const Descriptor &pipe, int size)
    {
        constexpr int standardSize = 64 << 10;
        return pipe.isValid() && size > standardSize
            ? std::make_unique<PipeStore>(pipe, size - standardSize)
            : nullptr;
    }

    /// Ends the reading.
    static QByteArray take(std::unique_ptr<PipeStore> &store)
    {
        const auto done = std::move(store);
        return done ? done->m_bytes : QByteArray();
    }

private:
    void keep(int pipe, qsizetype size)
    {
        std::array<char, 65536> bytes;
        const ssize_t count = read(pipe, bytes.data(), bytes.size());
        m_bytes.append(bytes.data(), std::max<ssize_t>(0, count));
        if (count <= 0 || m_bytes.size() >= size)
            m_notifier.setEnabled(false);
    }

    QByteArray m_bytes;
    QSocketNotifier m_notifier;
};

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
    RunningCommand(ChildProcess child, int pipeSize, CommandRunner::Done done, QObject *parent)
        : QObject(parent)
        , m_child(std::move(child))
        , m_done(std::move(done))
        , m_exitNotifier(m_child.exit().number(), QSocketNotifier::Read)
        , m_output(PipeStore::make(m_child.output(), pipeSize))
        , m_errorOutput(PipeStore::make(m_child.errorOutput(), pipeSize))
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
        CommandResult result = m_child.takeResult();
        result.output.prepend(PipeStore::take(m_output));
        result.errorOutput.prepend(PipeStore::take(m_errorOutput));
        for (Descriptor *pipe : { &m_child.output(), &m_child.errorOutput() }) {
            if (pipe->isValid())
                new Drain(std::move(*pipe), parent());
        }
        done(result);
    }

    ChildProcess m_child;
    CommandRunner::Done m_done;
    QSocketNotifier m_exitNotifier;
    std::unique_ptr<PipeStore> m_output;
    std::unique_ptr<PipeStore> m_errorOutput;
};

}

void CommandRunner::run(const CommandRequest &request, Done done)
{
    auto child = ChildProcess::start(request);
    if (child) {
        new RunningCommand(*std::move(child), request.pipeSize, std::move(done), this);
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
