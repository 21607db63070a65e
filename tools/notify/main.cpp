// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "base/BaseFolders.h"
#include "base/LocalizationManager.h"
#include "lib/support/Detachment.h"
#include "notify/Notification.h"

#include <QCoreApplication>
#include <QFile>
#include <QTimer>

#include <cstdio>
#include <cstdlib>
#include <unistd.h>

using namespace Tessel;
using namespace std::chrono_literals;

namespace {

constexpr unsigned maxSeconds = 6; ///< for a session bus that has stopped: Qt waits without a limit

}

/// Shows the notification on standard input (see base/DesktopNotification.h). Returns once it is
/// shown; the file is offered for another minute.
int main(int argc, char *argv[])
{
    BaseFolders::dropRelative();
    QFile input;
    if (!input.open(stdin, QIODevice::ReadOnly))
        return EXIT_FAILURE;
    const DesktopNotification request = notificationFrom(input.readAll());

    Detachment background = Detachment::begin();
    const QCoreApplication app(argc, argv);
    LocalizationManager::shared().takeInheritedLanguage();
    ::alarm(maxSeconds);
    Notification notification(request);
    QObject::connect(&notification, &Notification::finished, qApp, &QCoreApplication::quit);
    if (const Result<void> shown = notification.show(); !shown)
        background.fail(shown.error().reason);
    ::alarm(0);
    background.succeed();
    QTimer::singleShot(10min, qApp, &QCoreApplication::quit);
    return QCoreApplication::exec();
}
