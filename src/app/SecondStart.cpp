// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "app/SecondStart.h"

#include "app/BusService.h"
#include "app/SignalEvents.h"
#include "app/SingleInstance.h"
#include "base/ChildProcess.h"
#include "base/DesktopNotification.h"
#include "base/HelperFolder.h"
#include "base/LocalizationManager.h"
#include "base/Log.h"

#include <QFileInfo>

#include <csignal>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

/// The file name of the program that a process runs; empty when that cannot be known.
QString programName(qint64 process)
{
    QString path = QFileInfo(u"/proc/%1/exe"_s.arg(process)).symLinkTarget();
    if (path.endsWith(u" (deleted)")) // by an update
        path.chop(10);
    return QFileInfo(path).fileName();
}

bool isTessel(qint32 process)
{
    return process > 0 && QFileInfo(u"/proc/%1"_s.arg(process)).ownerId() == ::getuid()
        && programName(process) == programName(::getpid());
}

/// In the language of the session: only the program that runs may load its configuration.
void tell(const QString &lockPath)
{
    LocalizationManager::shared().takeInheritedLanguage();
    CommandRequest command = notificationCommand(
        { .text = localized(u"The lock file %1 names another program. Remove the file, "
                            "then start Tessel again."_s)
                      .arg(lockPath),
          .title = localized(u"Tessel was not started"_s),
          .topic = u"lock"_s },
        helperFolder());
    command.output = command.errorOutput = CommandRequest::Output::nothing;
    if (const auto notifier = ChildProcess::start(command); !notifier)
        Log::print(u"ERROR: "_s + notifier.error().reason);
}

}

void handOverTo(qint32 lockOwner, const QString &lockPath)
{
    if (!isTessel(lockOwner))
        return tell(lockPath);
    if (!BusService::showPreferencesOf(lockOwner)) // there may be no bus
        ::kill(lockOwner, SignalEvents::showPreferences);
}

bool signalRunningProgram(const QString &lockPath, int signal)
{
    const auto owner = SingleInstance::liveOwner(lockPath);
    return owner && isTessel(*owner) && ::kill(*owner, signal) == 0;
}

}
