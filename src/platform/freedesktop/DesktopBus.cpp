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

class Buses final : public QObject
{
public:
    Buses()
    {
        const QDeadlineTimer deadline(maxWait);
        for (const QByteArray &address :
             { addressIn("DBUS_SESSION_BUS_ADDRESS", "unix:runtime=yes"),
               addressIn("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/run/dbus/system_bus_socket") })
            m_silent += answers(address, int(deadline.remainingTime())) ? 0 : 1;
    }

    [[nodiscard]] bool areReady() const { return m_silent == 0; }

    void whenReady(QObject *context, const std::function<void()> &then)
    {
        if (areReady())
            then();
        else
            m_waiting.append({ context, then });
    }

private:
    /// Within so many milliseconds; else goes on asking.
    bool answers(const QByteArray &address, int patience)
    {
        const auto probe = std::make_shared<BusProbe>(address);
        pollfd answer { .fd = probe->answer().number(), .events = POLLIN, .revents = 0 };
        if (probe->isCrowded()) {
            QTimer::singleShot(maxWait, this, [this, address] {
                if (answers(address, 0))
                    countAnswer();
            });
            return false;
        }
        if (answer.fd < 0 || ::poll(&answer, 1, patience) != 0)
            return true;
        auto *notifier = new QSocketNotifier(answer.fd, QSocketNotifier::Read, this);
        connect(notifier, &QSocketNotifier::activated, this, [this, notifier, probe] {
            notifier->setEnabled(false);
            notifier->deleteLater();
            countAnswer();
        });
        return false;
    }

    void countAnswer()
    {
        if (--m_silent > 0)
            return;
        for (const auto &[context, then] : std::exchange(m_waiting, {})) {
            if (context)
                then();
        }
    }

    int m_silent = 0; ///< how many have not answered
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
