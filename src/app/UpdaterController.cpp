// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "app/UpdaterController.h"

#include "base/BaseFolders.h"
#include "base/HelperFolder.h"
#include "base/LocalizationManager.h"
#include "base/Log.h"
#include "windows/ReleaseNotes.h"
#include "windows/UpdateWindow.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace Tessel {

namespace {

constexpr int maxResultSize = 1 << 20; ///< bytes: 64 Ki characters of notes, all escaped, and more

/// What outlives the program.
struct State
{
    QDateTime lastCheck; ///< invalid: never
    QString highestVersion; ///< of all validly signed feeds; empty: none yet
};

State readState(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QJsonObject object = QJsonDocument::fromJson(file.readAll()).object();
    return { QDateTime::fromString(object.value("lastCheck"_L1).toString(), Qt::ISODate),
             object.value("highestVersion"_L1).toString() };
}

void writeState(const QString &path, const State &state)
{
    const QJsonObject object { { u"lastCheck"_s, state.lastCheck.toString(Qt::ISODate) },
                               { u"highestVersion"_s, state.highestVersion } };
    QDir().mkpath(QFileInfo(path).path());
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(QJsonDocument(object).toJson()) < 0
        || !file.commit())
        Log::print(u"WARNING: the state of the update check was not saved: "_s
                   + file.errorString());
}

/// A clock that was set back makes a check due.
std::chrono::milliseconds timeLeft(const QDateTime &lastCheck, const QDateTime &now,
                                   std::chrono::milliseconds interval)
{
    if (!lastCheck.isValid() || lastCheck > now)
        return 0ms;
    return std::max(0ms, interval - std::chrono::milliseconds(lastCheck.msecsTo(now)));
}

UpdateWindow::Content contentFor(const QJsonObject &result, const QString &current)
{
    const QString status = result.value("status"_L1).toString();
    if (status == u"newer") {
        const QString version = plainText(result.value("displayVersion"_L1).toString());
        return {
            localized(u"A new version is available"_s),
            localized(u"Tessel %1 is available. You have %2."_s).arg(version.simplified(), current),
            plainText(result.value("notes"_L1).toString()), result.value("link"_L1).toString()
        };
    }
    if (status == u"current")
        return { localized(u"You have the newest version"_s), u"Tessel %1"_s.arg(current), {}, {} };
    return {
        localized(u"The check for updates failed"_s), result.value("message"_L1).toString(), {}, {}
    };
}

}

UpdaterController::Dependencies UpdaterController::standard(Workspace &workspace)
{
    return { .workspace = workspace,
             .helperPath = helperFolder() + u"/tessel-update-check"_s,
             .feed = QStringLiteral(TESSEL_UPDATE_FEED),
             .publicKey = QStringLiteral(TESSEL_UPDATE_KEY),
             .stateFile = BaseFolders::state() + u"/updates.json"_s,
             .currentVersion = QStringLiteral(TESSEL_VERSION) };
}

UpdaterController::UpdaterController(Dependencies dependencies)
    : m_dependencies(std::move(dependencies))
{
    if (!isConfigured())
        return;
    m_automatic.setSingleShot(true);
    connect(&m_automatic, &QTimer::timeout, this, &UpdaterController::checkAutomatically);
    m_automatic.start(m_dependencies.firstCheckDelay);

    m_patience.setSingleShot(true);
    connect(&m_patience, &QTimer::timeout, &m_helper, &CommandRunner::killAll);
}

UpdaterController::~UpdaterController()
{
    delete m_window;
    m_helper.killAll();
}

bool UpdaterController::isConfigured() const
{
    return !m_dependencies.feed.isEmpty() && !m_dependencies.publicKey.isEmpty();
}

void UpdaterController::checkAutomatically()
{
    const auto left = timeLeft(readState(m_dependencies.stateFile).lastCheck, m_dependencies.now(),
                               m_dependencies.checkInterval);
    m_automatic.start(left > 0ms ? left : m_dependencies.checkInterval);
    if (left == 0ms && !m_isChecking)
        runHelper();
}

void UpdaterController::checkForUpdates()
{
    if (isConfigured()) {
        window().setContent({ localized(u"Checking for updates…"_s), {}, {}, {} });
        m_isAsked = true;
        if (!m_isChecking)
            runHelper();
    } else {
        window().setContent({ localized(u"Updates come from your package manager"_s),
                              localized(u"Tessel %1 does not look for updates itself."_s)
                                  .arg(m_dependencies.currentVersion),
                              {},
                              {} });
    }
    window().show();
    window().raise();
    window().activateWindow();
}

void UpdaterController::runHelper()
{
    State state = readState(m_dependencies.stateFile);
    state.lastCheck = m_dependencies.now();
    writeState(m_dependencies.stateFile, state);
    const CommandRequest request {
        .program = m_dependencies.helperPath,
        .arguments
        = { u"--feed="_s + m_dependencies.feed, u"--key="_s + m_dependencies.publicKey,
            u"--current="_s + m_dependencies.currentVersion, u"--seen="_s + state.highestVersion,
            u"--timeout=%1"_s.arg(m_dependencies.timeout.count()) },
        .input = QByteArray(),
        .errorOutput = CommandRequest::Output::nothing,
        .pipeSize = maxResultSize,
    };
    m_isChecking = true;
    m_patience.start(2 * m_dependencies.timeout);
    m_helper.run(request, [this](const Result<CommandResult> &result) {
        handleHelperEnd(result.valueOr({}).output);
    });
}

void UpdaterController::handleHelperEnd(const QByteArray &output)
{
    m_isChecking = false;
    m_patience.stop();
    QJsonObject result = QJsonDocument::fromJson(output).object();
    if (result.isEmpty())
        result.insert(u"message"_s, localized(u"The program for it did not do its work."_s));
    handleResult(result);
}

void UpdaterController::handleResult(const QJsonObject &result)
{
    const QString status = result.value("status"_L1).toString();
    const QString version = result.value("version"_L1).toString();
    State state = readState(m_dependencies.stateFile);
    const bool isNews = status == u"newer" && version != state.highestVersion;
    if (status == u"newer" || status == u"current") { // then it is not below the highest so far
        state.highestVersion = version;
        writeState(m_dependencies.stateFile, state);
    }
    const bool isAwaited = std::exchange(m_isAsked, false) && m_window;
    if (isAwaited || isNews) {
        window().setContent(contentFor(result, m_dependencies.currentVersion));
        window().setAttribute(Qt::WA_ShowWithoutActivating, !isAwaited);
        window().show();
    } else if (status != u"newer" && status != u"current") {
        Log::print(u"WARNING: update check failed: "_s
                   + result.value("message"_L1).toString().simplified());
    }
}

UpdateWindow &UpdaterController::window()
{
    if (!m_window) {
        windowWillOpen();
        m_window = new UpdateWindow(m_dependencies.workspace);
    }
    return *m_window;
}

}
