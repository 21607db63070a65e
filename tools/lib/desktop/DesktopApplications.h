// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "lib/Host.h"
#include "platform/freedesktop/DesktopEntries.h"

namespace Tessel {

class ClientWindows;
class DisplayConnection;

/// Applications by their desktop entries and, when they run, their windows. An application without
/// a window does not count as running.
class DesktopApplications final : public Osascript::Desktop
{
public:
    explicit DesktopApplications(DisplayConnection &display);

    QList<Osascript::Process> processes() override;
    bool isInstalled(const QString &application) override;
    bool isRunning(const QString &application) override;
    Result<void> activate(const QString &application) override;
    Result<void> launch(const QString &application) override;
    Result<void> quit(const QString &application) override;
    Result<void> open(const QString &target, const QString &application) override;
    Result<QString> openAs(const QString &path, const QString &mimeType) override;
    Result<void> reveal(const QString &path) override;

    /// Starts the application even when it runs, with files and URLs and further arguments.
    [[nodiscard]] Result<void> start(const QString &application, const QStringList &targets,
                                     const QStringList &arguments = {});

    /// Fails when the target is a path at which there is nothing, or would be taken for an option.
    [[nodiscard]] static Result<void> existing(const QString &target);

private:
    [[nodiscard]] static Result<void> start(const DesktopEntry &entry, const QStringList &targets,
                                            const QStringList &arguments = {});
    [[nodiscard]] ClientWindows *clientWindows();
    [[nodiscard]] QList<quint64> windowsOf(const QString &application);

    DisplayConnection &m_display;
    DesktopEntries m_entries;
};

}
