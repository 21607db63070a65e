// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "osascript/Host.h"
#include "platform/freedesktop/DesktopEntries.h"

class DisplayConnection;

/// Applications by their desktop entries and, when they run, their windows. An application without
/// a window does not count as running.
class DesktopApplications final : public osascript::Desktop
{
public:
    explicit DesktopApplications(DisplayConnection &display);

    QList<osascript::Process> processes() override;
    bool isInstalled(const QString &application) override;
    bool isRunning(const QString &application) override;
    osascript::Failure activate(const QString &application) override;
    osascript::Failure launch(const QString &application) override;
    osascript::Failure quit(const QString &application) override;
    osascript::Failure open(const QString &target, const QString &application) override;
    osascript::Failure reveal(const QString &path) override;

    /// Starts the application even when it runs, with files and URLs and further arguments.
    [[nodiscard]] osascript::Failure start(const QString &application, const QStringList &targets,
                                           const QStringList &arguments = {});

    /// Whether the target is a path at which there is nothing.
    [[nodiscard]] static osascript::Failure missingFile(const QString &target);

private:
    [[nodiscard]] QList<quint32> windowsOf(const QString &application);

    DisplayConnection &m_display;
    DesktopEntries m_entries;
};
