// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "lib/desktop/DesktopApplications.h"

#include "base/ChildProcess.h"
#include "lib/desktop/DisplayConnection.h"
#include "lib/desktop/Waiting.h"
#include "lib/support/RunProgram.h"
#include "platform/ClientWindows.h"
#include "platform/freedesktop/ExecLine.h"
#include "platform/freedesktop/MimeApplications.h"
#include "platform/freedesktop/XdgOpen.h"

#include <QFileInfo>
#include <QUrl>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace Tessel {

using Osascript::Process;

namespace {

constexpr auto untilFirstWindow = 5s;
constexpr auto untilActive = 1s;

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

/// Null without a desktop.
ClientWindows *DesktopApplications::clientWindows()
{
    HelperPlatform *desktop = m_display.platform().valueOr(nullptr);
    return desktop ? &desktop->clientWindows() : nullptr;
}

QList<Process> DesktopApplications::processes()
{
    ClientWindows *windows = clientWindows();
    if (!windows)
        return {};
    const quint64 active = windows->active();
    QList<Process> processes;
    for (const ClientWindow &window : windows->all()) {
        const FrontApplication &application = window.application;
        const QString identifier = application.bundleIdentifier.value_or(QString());
        auto known = std::find_if(processes.begin(), processes.end(), [&](const Process &process) {
            return process.identifier == identifier && process.name == application.localizedName;
        });
        if (known == processes.end()) {
            processes.append({ .name = application.localizedName,
                               .identifier = identifier,
                               .id = window.processId });
            known = processes.end() - 1;
        }
        known->isFrontmost |= application.window == active;
        known->isVisible |= !window.isHidden;
    }
    std::stable_partition(processes.begin(), processes.end(),
                          [](const Process &process) { return process.isFrontmost; });
    return processes;
}

/// The topmost first.
QList<quint64> DesktopApplications::windowsOf(const QString &application)
{
    ClientWindows *windows = clientWindows();
    if (!windows)
        return {};
    const auto entry = m_entries.findNamed(application);
    QList<quint64> found;
    for (const ClientWindow &window : windows->all()) {
        const FrontApplication &owner = window.application;
        const QString identifier = owner.bundleIdentifier.value_or(QString());
        if (isSame(owner.localizedName, application) || isSame(identifier, application)
            || (entry && identifier == entry->id))
            found += owner.window;
    }
    return found;
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
    QList<quint64> windows = windowsOf(application);
    if (windows.isEmpty()) {
        if (auto started = start(application, {}); !started)
            return started;
        waitUntil(
            [&] {
                windows = windowsOf(application);
                return !windows.isEmpty();
            },
            clientWindows() ? untilFirstWindow : 0s);
    }
    if (windows.isEmpty())
        return {};
    clientWindows()->activate(windows.first());
    waitUntil([&] { return clientWindows()->active() == windows.first(); }, untilActive);
    return {};
}

Result<void> DesktopApplications::launch(const QString &application)
{
    return isRunning(application) ? Result<void>() : start(application, {});
}

Result<void> DesktopApplications::quit(const QString &application)
{
    const QList<quint64> windows = windowsOf(application);
    for (const quint64 window : windows)
        clientWindows()->close(window);
    return {};
}

Result<void> DesktopApplications::existing(const QString &target)
{
    if (target.startsWith(u'-'))
        return Failure { u"“%1” is neither an address nor the path of a file."_s.arg(target) };
    if (target.startsWith(u'/') && !QFileInfo::exists(target))
        return Failure { u"The file %1 does not exist."_s.arg(target) };
    return {};
}

Result<void> DesktopApplications::open(const QString &target, const QString &application)
{
    if (auto there = existing(target); !there)
        return there;
    return application.isEmpty() ? xdgOpen(target) : start(application, { target });
}

Result<QString> DesktopApplications::openAs(const QString &path, const QString &mimeType)
{
    const auto entry = applicationFor(mimeType, m_entries);
    if (!entry)
        return Failure { u"No application opens files of the type %1"_s.arg(mimeType) };
    if (const auto started = start(*entry, { path }); !started)
        return started.error();
    return entry->name;
}

Result<void> DesktopApplications::start(const QString &application, const QStringList &targets,
                                        const QStringList &arguments)
{
    const auto entry = m_entries.findNamed(application);
    return entry ? start(*entry, targets, arguments)
                 : Failure { u"There is no application “%1”."_s.arg(application) };
}

Result<void> DesktopApplications::start(const DesktopEntry &entry, const QStringList &targets,
                                        const QStringList &arguments)
{
    QStringList command = commandLine(entry, targets);
    if (command.isEmpty())
        return Failure { u"%1 does not say how “%2” is started."_s.arg(entry.file, entry.name) };
    command += arguments;
    const QStringList terminal { u"x-terminal-emulator"_s, u"-e"_s };
    if (entry.runsInTerminal)
        command = terminal + command;
    return startDetached({ .program = command.first(),
                           .arguments = command.mid(1),
                           .workingFolder = entry.workingFolder });
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
    if (shown)
        return {};
    return xdgOpen(QFileInfo(path).path());
}

}
