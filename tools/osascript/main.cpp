// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "CommandLine.h"
#include "DesktopHost.h"

#include <QCoreApplication>

int main(int argc, char *argv[])
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromUtf8(argv[i]));
    const QCoreApplication application(argc, argv);
    DesktopHost desktop;
    osascript::Host host = desktop.host();
    return osascript::runCommandLine(arguments, host);
}
