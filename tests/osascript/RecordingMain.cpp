// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/RecordingHost.h"

#include "osascript/CommandLine.h"

#include <QCoreApplication>

using namespace Tessel;

int main(int argc, char *argv[])
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromUtf8(argv[i]));
    const QCoreApplication application(argc, argv);
    RecordingHost recording;
    Osascript::Host host = recording.host();
    return Osascript::runCommandLine(arguments, host);
}
