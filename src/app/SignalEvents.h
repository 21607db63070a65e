// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <csignal>

namespace Tessel {

/// What other processes tell this one by signals, as events of the main thread. One at most.
class SignalEvents final : public QObject
{
    Q_OBJECT

public:
    static constexpr int showPreferences = SIGUSR1;
    static constexpr int trigger = SIGUSR2;

    /// From here on, those signals no longer end the process. Needs no application object.
    SignalEvents();

    /// Delivers what has come, and from now on what comes; SIGTERM, SIGINT and SIGHUP too.
    void start();

Q_SIGNALS:
    void preferencesRequested();
    void triggerRequested();
    void endRequested();

private:
    void read();
};

}
