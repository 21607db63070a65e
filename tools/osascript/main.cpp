// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "lib/desktop/DesktopHost.h"
#include "osascript/CommandLine.h"

#include <QCoreApplication>

using namespace Tessel;

int main(int argc, char *argv[])
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromUtf8(argv[i]));
    const QCoreApplication application(argc, argv);
    DesktopHost desktop;
    Osascript::Host host = desktop.host();
    return Osascript::runCommandLine(arguments, host);
}
