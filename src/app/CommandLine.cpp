// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "app/CommandLine.h"

#include "app/SecondStart.h"
#include "app/SignalEvents.h"
#include "app/SingleInstance.h"

#include <QByteArray>

#include <csignal>
#include <cstdio>

namespace Tessel {

namespace {

constexpr int success = 0;
constexpr int failure = 1;
constexpr int wrongUsage = 2;

constexpr auto help = R"(Usage: tessel [OPTION]
Offers actions for the text that is selected in any application.

  --trigger      do what the trigger key does; for a key binding of the desktop
  --preferences  show the preferences; starts Tessel when it is not running
  --quit         end the Tessel that is running
  --version      print the version
  --help         print this
)";

int say(std::FILE *stream, const QByteArray &text, int status)
{
    std::fputs(text.constData(), stream);
    return status;
}

}

bool asksForPreferences(int argc, const char *const argv[])
{
    return argc == 2 && QByteArrayView(argv[1]) == "--preferences";
}

std::optional<int> answerCommandLine(int argc, const char *const argv[])
{
    // Session managers start programs again with options of Qt's, which have one dash.
    const QByteArray option = argc > 1 ? argv[1] : "";
    if (option.isEmpty() || asksForPreferences(argc, argv)
        || (option.startsWith('-') && !option.startsWith("--")))
        return {};
    if (argc == 2 && option == "--help")
        return say(stdout, help, success);
    if (argc == 2 && option == "--version")
        return say(stdout, "tessel " TESSEL_VERSION "\n", success);
    if (argc != 2 || (option != "--trigger" && option != "--quit"))
        return say(stderr,
                   "tessel: cannot do \"" + QByteArray(argv[argc - 1]) + "\"; see tessel --help\n",
                   wrongUsage);
    const int signal = option == "--quit" ? SIGTERM : SignalEvents::trigger;
    if (signalRunningProgram(SingleInstance::lockFilePath(), signal))
        return success;
    return say(stderr, "tessel: Tessel is not running\n", failure);
}

}
