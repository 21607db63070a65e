// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "RecordingHost.h"

#include <CommandLine.h>

int main(int argc, char *argv[])
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromUtf8(argv[i]));
    RecordingHost recording;
    osascript::Host host = recording.host();
    return osascript::runCommandLine(arguments, host);
}
