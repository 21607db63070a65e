// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/DesktopBus.h"

#include "platform/freedesktop/BusProbe.h"

#include <QDeadlineTimer>
#include <QPointer>
#include <QSocketNotifier>
#include <QTimer>

#include <memory>
#include <poll.h>
#include <utility>

namespace Tessel {

namespace {

/// Milliseconds. A bus that wakes up later still serves everything but screen readers.
constexpr int maxWait = 1000;

QByteArray addressIn(const char *variable, const char *standard)
{
    return qEnvironmentVariableIsEmpty(variable) ? QByteArray(standard) : qgetenv(variable);
}

bool answers(const BusProbe &probe, int patience)
{
    pollfd answer { .fd = probe.answer().number(), .events = POLLIN, .revents = 0 };
    return !probe.isCrowded() && (answer.fd < 0 || ::poll(&answer, 1, patience) != 0);
}

class Buses final : public QObject
{
public:
    Buses()
    {
        const QDeadlineTimer deadline(maxWait);
        for (const QByteArray &address :
             { addressIn("DBUS_SESSION_BUS_ADDRESS", "unix:runtime=yes"),
               addressIn("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/run/dbus/system_bus_socket") }) {
            auto probe = std::make_shared<BusProbe>(address);
            if (!answers(*probe, int(deadline.remainingTime())))
                m_silent.append({ address, std::move(probe) });
        }
    }

    [[nodiscard]] bool areReady() const { return m_silent.isEmpty(); }

    void whenReady(QObject *context, const std::function<void()> &then)
    {
        if (areReady())
            return then();
        m_waiting.append({ context, then });
        if (m_waiting.size() > 1)
            return;
        for (const auto &[address, probe] : std::as_const(m_silent))
            listen(address, probe);
    }

private:
    void listen(const QByteArray &address, const std::shared_ptr<BusProbe> &probe)
    {
        if (probe->isCrowded()) {
            QTimer::singleShot(maxWait, this, [this, address] {
                const auto next = std::make_shared<BusProbe>(address);
                answers(*next, 0) ? countAnswer() : listen(address, next);
            });
            return;
        }
        auto *notifier = new QSocketNotifier(probe->answer().number(), QSocketNotifier::Read, this);
        connect(notifier, &QSocketNotifier::activated, this, [this, notifier, probe] {
            notifier->setEnabled(false);
            notifier->deleteLater();
            countAnswer();
        });
    }

    void countAnswer()
    {
        if (++m_answers < m_silent.size())
            return;
        m_silent.clear();
        for (const auto &[context, then] : std::exchange(m_waiting, {})) {
            if (context)
                then();
        }
    }

    QList<std::pair<QByteArray, std::shared_ptr<BusProbe>>> m_silent; ///< by address
    qsizetype m_answers = 0; ///< of these, since
    QList<std::pair<QPointer<QObject>, std::function<void()>>> m_waiting;
};

Buses &buses()
{
    static auto *instance = new Buses;
    return *instance;
}

}

bool DesktopBus::isReady()
{
    return buses().areReady();
}

void DesktopBus::whenReady(QObject *context, const std::function<void()> &then)
{
    buses().whenReady(context, then);
}

}
