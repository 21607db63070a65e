// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "app/SignalEvents.h"

#include <QSocketNotifier>

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace Tessel {

namespace {

int ends[2] = { -1, -1 };

void send(int number)
{
    const int error = errno;
    const auto byte = static_cast<char>(number);
    [[maybe_unused]] const auto written = ::write(ends[1], &byte, 1);
    errno = error;
}

}

SignalEvents::SignalEvents()
{
    if (::pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    std::signal(showPreferences, send);
    std::signal(trigger, send);
}

void SignalEvents::start()
{
    if (ends[0] < 0)
        return;
    for (const int number : { SIGTERM, SIGINT, SIGHUP }) {
        if (std::signal(number, send) == SIG_IGN)
            std::signal(number, SIG_IGN); // started by nohup, or in the background of a script
    }
    auto *notifier = new QSocketNotifier(ends[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &SignalEvents::read);
}

void SignalEvents::read()
{
    char number = 0;
    if (::read(ends[0], &number, 1) != 1)
        return;
    if (number == showPreferences)
        Q_EMIT preferencesRequested();
    else if (number == trigger)
        Q_EMIT triggerRequested();
    else
        Q_EMIT endRequested();
}

}
