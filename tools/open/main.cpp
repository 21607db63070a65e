// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "base/BaseFolders.h"
#include "base/ClosedStreams.h"
#include "lib/desktop/DesktopApplications.h"
#include "lib/desktop/DisplayConnection.h"
#include "lib/support/StandardStreams.h"
#include "open/DefaultHandlers.h"
#include "open/OpenRequest.h"

#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>

using namespace Tessel;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto usage
    = "Usage: open [-t | -e] FILE-OR-URL...\n"
      "       open -a APPLICATION [FILE-OR-URL...] [--args ARGUMENT...]\n"
      "       open -b IDENTIFIER [FILE-OR-URL...] [--args ARGUMENT...]\n"
      "       open -R FILE...\n"
      "\n"
      "Opens files and URLs with their default applications or with the one\n"
      "named; -t and -e take the one for text, -R shows files in the file\n"
      "manager. What follows --args is for the application, what follows -- is no\n"
      "option. -F, -g, -j, -n and -W have no effect.\n";

/// What xdg-open takes to find no application; one that runs as long as xdg-open works.
constexpr auto untilFailure = 1s;

void complain(const QString &reason)
{
    std::fprintf(stderr, "open: %s\n", qUtf8Printable(reason));
}

/// The reasons of what did not work; goes on, as the other targets have nothing to do with it.
QStringList carryOut(const OpenRequest &request)
{
    DisplayConnection display;
    DesktopApplications desktop(display);
    DefaultHandlers handlers;
    QStringList reasons;
    const auto note = [&reasons](const Result<void> &result) {
        if (!result)
            reasons += result.error().reason;
    };
    const QString &application = request.application;
    if (request.targets.isEmpty() && request.arguments.isEmpty())
        note(desktop.activate(application));
    else if (request.targets.isEmpty())
        note(desktop.start(application, {}, request.arguments));
    for (const QString &target : request.targets) {
        if (const auto there = DesktopApplications::existing(target); !there)
            note(there);
        else if (request.reveals)
            note(desktop.reveal(target));
        else if (!application.isEmpty())
            note(desktop.start(application, { target }, request.arguments));
        else
            handlers.open(target);
    }
    return reasons + handlers.failures(untilFailure);
}

int run(OpenRequest request)
{
    if (request.opensAsText && request.application.isEmpty()) {
        const auto application = DefaultHandlers::textApplication();
        if (!application) {
            complain(u"There is no default application for text."_s);
            return EXIT_FAILURE;
        }
        request.application = *application;
    }
    const QStringList reasons = carryOut(request);
    for (const QString &reason : reasons)
        complain(reason);
    return reasons.isEmpty() ? EXIT_SUCCESS : EXIT_FAILURE;
}

}

int main(int argc, char *argv[])
{
    occupyClosedStreams();
    BaseFolders::dropRelative();
    const QCoreApplication app(argc, argv);
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    if (const auto request = OpenRequest::parse(arguments))
        return run(*request);
    const bool isHelp = arguments.contains(u"-h"_s) || arguments.contains(u"--help"_s);
    std::fputs(usage, isHelp ? stdout : stderr);
    return isHelp ? finishOutput("open") : EXIT_FAILURE;
}
