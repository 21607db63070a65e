// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "CommandLine.h"
#include "HeadlessHost.h"

namespace {

osascript::Host makeHost()
{
    static osascript::HeadlessHost headless;
    return headless.host();
}

}

int main(int argc, char *argv[])
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromUtf8(argv[i]));
    osascript::Host host = makeHost();
    return osascript::runCommandLine(arguments, host);
}
