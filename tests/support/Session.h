// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "support/ChildProcess.h"
#include "support/UrlRecorder.h"

#include <QTemporaryDir>

#include <memory>
#include <vector>

namespace Tessel::Desktop {

// What a private desktop of any window system has: a session bus without activatable services, a
// home of its own and a handler for addresses. Everything that was started in it, and everything
// that those programs left behind, is ended by the destructor.
class Session
{
public:
    Session();
    virtual ~Session();
    Q_DISABLE_COPY_MOVE(Session)

    // Why start() of a desktop, or run(), has returned false.
    [[nodiscard]] QString errorString() const { return m_error; }

    [[nodiscard]] QString homePath() const { return m_folder.filePath(QStringLiteral("home")); }
    [[nodiscard]] QString cachePath() const { return homePath() + QStringLiteral("/.cache"); }
    [[nodiscard]] QString configPath() const { return homePath() + QStringLiteral("/.config"); }
    [[nodiscard]] QString dataPath() const { return homePath() + QStringLiteral("/.local/share"); }
    [[nodiscard]] QString runtimePath() const { return m_folder.filePath(QStringLiteral("run")); }
    [[nodiscard]] QString temporaryPath() const { return m_folder.filePath(QStringLiteral("tmp")); }

    // What programs of this desktop get. Variables of the test's own environment are left out but
    // for PATH and the options of sanitizers.
    [[nodiscard]] QProcessEnvironment environment() const { return m_environment; }
    void setVariable(const QString &name, const QString &value);

    // The program runs in homePath() and belongs to the session. A program that could not be
    // started is not running.
    ChildProcess &launch(const QString &program, const QStringList &arguments = {});
    ChildProcess &launch(const QString &program, const QStringList &arguments,
                         const QProcessEnvironment &environment);

    // Waits for the program; false with a reason when it does not end well.
    [[nodiscard]] bool run(const QString &program, const QStringList &arguments);

    [[nodiscard]] const UrlRecorder &urlRecorder() const { return m_urlRecorder; }

protected:
    [[nodiscard]] bool fail(const QString &reason);
    [[nodiscard]] bool prepare();
    // The variable gets its address, the name is that of its socket.
    [[nodiscard]] bool startBus(const QString &name = QStringLiteral("bus"),
                                const QString &variable
                                = QStringLiteral("DBUS_SESSION_BUS_ADDRESS"));
    [[nodiscard]] QString path(const QString &name) const { return m_folder.filePath(name); }

private:
    [[nodiscard]] bool prepareFolders();
    void prepareEnvironment();
    bool killStragglers();

    QTemporaryDir m_folder;
    QProcessEnvironment m_environment;
    QString m_error;
    UrlRecorder m_urlRecorder;
    std::vector<std::unique_ptr<ChildProcess>> m_children; // in the order of their start
};

}
