// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "lib/desktop/DesktopApplications.h"

#include "lib/desktop/ClientWindows.h"
#include "lib/desktop/DisplayConnection.h"
#include "lib/desktop/Waiting.h"
#include "lib/support/RunProgram.h"
#include "platform/freedesktop/DetachedProgram.h"
#include "platform/freedesktop/ExecLine.h"
#include "platform/freedesktop/XdgOpen.h"
#include "platform/x11/X11Workspace.h"

#include <QFileInfo>
#include <QUrl>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace Tessel {

using Osascript::Process;

namespace {

constexpr auto untilFirstWindow = 5s;

Result<void> resultOf(const std::optional<QString> &failure)
{
    return failure ? Result<void>(Failure { *failure }) : Result<void>();
}

bool isSame(const QString &a, const QString &b)
{
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

}

DesktopApplications::DesktopApplications(DisplayConnection &display)
    : m_display(display)
    , m_entries(DesktopEntries::standardFolders())
{
}

QList<Process> DesktopApplications::processes()
{
    X11Connection *connection = m_display.connection();
    if (!connection)
        return {};
    const ClientWindows windows(*connection);
    X11Workspace workspace(*connection);
    const quint32 active = windows.active();
    QList<Process> processes;
    for (const quint32 window : windows.all()) {
        const FrontApplication application = workspace.applicationOf(window);
        const QString identifier = application.bundleIdentifier.value_or(QString());
        auto known = std::find_if(processes.begin(), processes.end(), [&](const Process &process) {
            return process.identifier == identifier && process.name == application.localizedName;
        });
        if (known == processes.end()) {
            processes.append({ .name = application.localizedName,
                               .identifier = identifier,
                               .id = windows.processId(window) });
            known = processes.end() - 1;
        }
        known->isFrontmost |= window == active;
        known->isVisible |= !windows.isHidden(window);
    }
    std::stable_partition(processes.begin(), processes.end(),
                          [](const Process &process) { return process.isFrontmost; });
    return processes;
}

/// The topmost first.
QList<quint32> DesktopApplications::windowsOf(const QString &application)
{
    X11Connection *connection = m_display.connection();
    if (!connection)
        return {};
    const auto entry = m_entries.findNamed(application);
    X11Workspace workspace(*connection);
    QList<quint32> windows = ClientWindows(*connection).all();
    windows.removeIf([&](quint32 window) {
        const FrontApplication owner = workspace.applicationOf(window);
        const QString identifier = owner.bundleIdentifier.value_or(QString());
        return !isSame(owner.localizedName, application) && !isSame(identifier, application)
            && !(entry && identifier == entry->id);
    });
    return windows;
}

bool DesktopApplications::isInstalled(const QString &application)
{
    return m_entries.findNamed(application).has_value();
}

bool DesktopApplications::isRunning(const QString &application)
{
    return !windowsOf(application).isEmpty();
}

Result<void> DesktopApplications::activate(const QString &application)
{
    QList<quint32> windows = windowsOf(application);
    if (windows.isEmpty()) {
        if (auto started = start(application, {}); !started)
            return started;
        waitUntil(
            [&] {
                windows = windowsOf(application);
                return !windows.isEmpty();
            },
            m_display.connection() ? untilFirstWindow : 0s);
    }
    if (!windows.isEmpty())
        ClientWindows(*m_display.connection()).activate(windows.first());
    return {};
}

Result<void> DesktopApplications::launch(const QString &application)
{
    return isRunning(application) ? Result<void>() : start(application, {});
}

Result<void> DesktopApplications::quit(const QString &application)
{
    const QList<quint32> windows = windowsOf(application);
    for (const quint32 window : windows)
        ClientWindows(*m_display.connection()).close(window);
    return {};
}

Result<void> DesktopApplications::existing(const QString &target)
{
    if (target.startsWith(u'/') && !QFileInfo::exists(target))
        return Failure { u"The file %1 does not exist."_s.arg(target) };
    return {};
}

Result<void> DesktopApplications::open(const QString &target, const QString &application)
{
    if (auto there = existing(target); !there)
        return there;
    return application.isEmpty() ? resultOf(xdgOpen(target)) : start(application, { target });
}

Result<void> DesktopApplications::start(const QString &application, const QStringList &targets,
                                        const QStringList &arguments)
{
    const auto entry = m_entries.findNamed(application);
    if (!entry)
        return Failure { u"There is no application “%1”."_s.arg(application) };
    QStringList command = commandLine(*entry, targets);
    if (command.isEmpty())
        return Failure { u"%1 does not say how “%2” is started."_s.arg(entry->file, application) };
    command += arguments;
    const QStringList terminal { u"x-terminal-emulator"_s, u"-e"_s };
    return resultOf(
        startDetached(entry->runsInTerminal ? terminal + command : command, entry->workingFolder));
}

/// Asks the file manager (org.freedesktop.FileManager1), or has the folder opened.
Result<void> DesktopApplications::reveal(const QString &path)
{
    if (auto there = existing(path); !there)
        return there;
    const QString address
        = u"file://"_s + QString::fromLatin1(QUrl::toPercentEncoding(path, "/")); // no commas
    const auto shown
        = runProgram(u"dbus-send"_s,
                     { u"--session"_s, u"--print-reply"_s, u"--reply-timeout=3000"_s,
                       u"--dest=org.freedesktop.FileManager1"_s, u"/org/freedesktop/FileManager1"_s,
                       u"org.freedesktop.FileManager1.ShowItems"_s, u"array:string:"_s + address,
                       u"string:"_s });
    if (!shown.failure && shown.exitStatus == 0)
        return {};
    return resultOf(xdgOpen(QFileInfo(path).path()));
}

}
