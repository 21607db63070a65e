// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/CommandRunner.h"

#include <QDateTime>
#include <QPointer>
#include <QTimer>

#include <chrono>
#include <functional>

class QJsonObject;

namespace Tessel {

class UpdateWindow;
class Workspace;

/// Looks for a newer version: once a day by itself, and when asked to. It tells and links; it never
/// downloads or installs anything. A separate program talks to the server; see
/// tools/update-check/README.md.
class UpdaterController final : public QObject
{
    Q_OBJECT

public:
    struct Dependencies
    {
        Workspace &workspace;
        QString helperPath; ///< tessel-update-check
        QString feed; ///< without a feed or a key, updates come from the package manager
        QString publicKey; ///< Ed25519, Base64
        QString stateFile; ///< keeps the time of the last check and the highest version seen
        QString currentVersion;
        std::function<QDateTime()> now = &QDateTime::currentDateTimeUtc;
        std::chrono::milliseconds firstCheckDelay = std::chrono::minutes(1);
        std::chrono::milliseconds checkInterval = std::chrono::hours(24);
        std::chrono::milliseconds timeout = std::chrono::seconds(15);
    };

    /// As this program was built and installed; the state is in $XDG_STATE_HOME/tessel.
    [[nodiscard]] static Dependencies standard(Workspace &workspace);

    /// Starts the timer of the automatic checks.
    explicit UpdaterController(Dependencies dependencies);
    ~UpdaterController() override; ///< ends a check that is under way

    std::function<void()> windowWillOpen = [] {};

    /// Opens a window that shows the result as soon as there is one.
    void checkForUpdates();

private:
    [[nodiscard]] bool isConfigured() const;
    void checkAutomatically();
    void runHelper();
    void handleHelperEnd(const QByteArray &output);
    void handleResult(const QJsonObject &result);
    UpdateWindow &window();

    Dependencies m_dependencies;
    QTimer m_automatic;
    QTimer m_patience; ///< for a helper that does not even keep its own deadline
    CommandRunner m_helper;
    QPointer<UpdateWindow> m_window;
    bool m_isChecking = false;
    bool m_isAsked = false; ///< by the user, for the check that is under way
};

}
