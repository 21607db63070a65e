// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Result.h"
#include "files/Files.h"
#include "support/DesktopSession.h"

#include <QTest>

namespace Tessel {

[[nodiscard]] inline QString reason(const Result<void> &result)
{
    return result ? QString() : result.error().reason;
}

/// A desktop with a shell that finds the helpers.
template <typename DesktopType> struct BasicHelperStage final
{
    DesktopType session;

    template <typename... Options> [[nodiscard]] bool prepare(const Options &...options)
    {
        const bool isUp = session.start(options...);
        session.setVariable(QStringLiteral("PATH"),
                            QStringLiteral(TESSEL_HELPERS ":") + qEnvironmentVariable("PATH"));
        return isUp;
    }

    /// Makes what the test starts by itself, and its own connections, belong to this desktop.
    void enter() const
    {
        const QProcessEnvironment environment = session.environment();
        for (const QString &name : environment.keys())
            qputenv(name.toLatin1(), environment.value(name).toLocal8Bit());
    }

    /// The command's exit status; -1 when it does not end.
    int run(const QString &command)
    {
        Desktop::ChildProcess &shell
            = session.launch(QStringLiteral("/bin/sh"), { QStringLiteral("-c"), command });
        return shell.waitForExit() ? shell.exitCode() : -1;
    }

    /// Whether a pbcopy of this desktop still has the clipboard.
    [[nodiscard]] bool isServing() const
    {
        const QByteArray home = "HOME=" + session.homePath().toLocal8Bit();
        const auto processes = QDir(QStringLiteral("/proc")).entryList(QDir::Dirs);
        return std::any_of(processes.cbegin(), processes.cend(), [&home](const QString &process) {
            const QString folder = QStringLiteral("/proc/") + process;
            return readFile(folder + QStringLiteral("/comm")) == "pbcopy\n"
                && readFile(folder + QStringLiteral("/environ")).split('\0').contains(home);
        });
    }

    [[nodiscard]] QByteArray file(const QString &name) const
    {
        return readFile(session.homePath() + u'/' + name);
    }

    void write(const QString &name, const QByteArray &content) const
    {
        QVERIFY(writeFile(session.homePath() + u'/' + name, content));
    }
};

using Stage = BasicHelperStage<Desktop::DesktopSession>;

}
