// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "support/DesktopSession.h"
#include "support/XUser.h"

#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonObject>

namespace Tessel {

/// The program as a user of the private desktop has it: its configuration, its process, its bar.
class TesselProgram
{
public:
    explicit TesselProgram(Desktop::DesktopSession &session);

    /// Settings that the configuration file is to hold besides the actions.
    QJsonObject settings;
    /// The actions; empty: one that opens "tessel-test://open?{text}".
    QJsonArray actions;

    [[nodiscard]] static QJsonObject action(const QString &id, const QString &type,
                                            const QString &templateText);
    [[nodiscard]] static QJsonObject urlAction(const QString &id, const QString &urlTemplate);

    [[nodiscard]] bool writeConfiguration();

    /// Writes the configuration and starts the program; true when it says that it is up.
    [[nodiscard]] bool start();
    [[nodiscard]] Desktop::ChildProcess &process() { return *m_process; }
    [[nodiscard]] static QString path();
    /// What the program has saved.
    [[nodiscard]] QJsonObject configuration() const;

    /// Presses the trigger key and waits for the bar; nothing when it does not come. After another
    /// capture it waits until the program listens again.
    [[nodiscard]] std::optional<Desktop::WindowInfo> summon();
    [[nodiscard]] std::optional<Desktop::WindowInfo> bar() const; ///< when it is on the screen
    [[nodiscard]] std::optional<Desktop::WindowInfo> waitForBar() const;
    [[nodiscard]] bool waitUntilBarGone() const;

    /// One of the program's other windows, when it has come.
    [[nodiscard]] std::optional<Desktop::WindowInfo> waitForWindow(const QString &title) const;

    /// Presses Ctrl and comma in the bar; the settings window when it has the keyboard.
    [[nodiscard]] std::optional<Desktop::WindowInfo> openSettings();

    /// Keys and scrolling are ignored for a second after a capture: returns when that is over.
    void awaitTrigger() const;

    /// Middle of a button of the standard width, in pixels of the root window at scale 1.
    [[nodiscard]] static QPoint button(const Desktop::WindowInfo &bar, int index);

private:
    [[nodiscard]] QString configFile() const;

    Desktop::DesktopSession &m_session;
    Desktop::ChildProcess *m_process = nullptr;
    mutable QElapsedTimer m_sinceCapture;
};

}
