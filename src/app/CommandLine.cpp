// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "app/CommandLine.h"

#include "app/SecondStart.h"
#include "app/SingleInstance.h"

#include <QByteArray>

#include <cstdio>

namespace Tessel {

namespace {

constexpr int success = 0;
constexpr int failure = 1;
constexpr int wrongUsage = 2;

constexpr auto help = R"(Usage: tessel [OPTION]
Offers actions for the text that is selected in any application.

  --trigger   do what the trigger key does; for a key binding of the desktop
  --version   print the version
  --help      print this
)";

int say(std::FILE *stream, const QByteArray &text, int status)
{
    std::fputs(text.constData(), stream);
    return status;
}

}

std::optional<int> answerCommandLine(int argc, const char *const argv[])
{
    // Session managers start programs again with options of Qt's, which have one dash.
    const QByteArray option = argc > 1 ? argv[1] : "";
    if (option.isEmpty() || (option.startsWith('-') && !option.startsWith("--")))
        return {};
    if (argc == 2 && option == "--help")
        return say(stdout, help, success);
    if (argc == 2 && option == "--version")
        return say(stdout, "tessel " TESSEL_VERSION "\n", success);
    if (argc != 2 || option != "--trigger")
        return say(stderr,
                   "tessel: cannot do \"" + QByteArray(argv[argc - 1]) + "\"; see tessel --help\n",
                   wrongUsage);
    if (triggerRunningProgram(SingleInstance::lockFilePath()))
        return success;
    return say(stderr, "tessel: Tessel is not running\n", failure);
}

}
