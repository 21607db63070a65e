// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "DesktopApplications.h"
#include "DisplayConnection.h"
#include "StandardStreams.h"

#include <QCoreApplication>
#include <QDir>
#include <QRegularExpression>

#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

constexpr auto usage = "Usage: open FILE-OR-URL...\n"
                       "       open -a APPLICATION [FILE-OR-URL...]\n"
                       "       open -R FILE...\n"
                       "\n"
                       "Opens files and URLs with their default applications or with the one\n"
                       "named; -R shows files in the file manager.\n";

/// A URL as it is, else an absolute path. A file that exists is never taken for a URL.
QString targetFrom(const QString &argument)
{
    static const QRegularExpression scheme(u"^[A-Za-z][A-Za-z0-9+.-]*:"_s); // RFC 3986, 3.1
    const bool isUrl = scheme.match(argument).hasMatch() && !QFileInfo::exists(argument);
    return isUrl ? argument : QDir::cleanPath(QDir::current().absoluteFilePath(argument));
}

struct Request
{
    bool reveals = false;
    QString application;
    QStringList targets;
};

std::optional<Request> parse(const QStringList &arguments)
{
    Request request;
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString &argument = arguments[i];
        if (argument == u"-a" && i + 1 < arguments.size())
            request.application = arguments[++i];
        else if (argument == u"-R")
            request.reveals = true;
        else if (argument.startsWith(u'-') && argument.size() > 1)
            return {};
        else
            request.targets += targetFrom(argument);
    }
    const bool isComplete
        = !request.targets.isEmpty() || (!request.application.isEmpty() && !request.reveals);
    return isComplete ? std::optional(request) : std::nullopt;
}

/// Goes on after a failure, as the other targets have nothing to do with it.
int run(const Request &request)
{
    DisplayConnection display;
    DesktopApplications desktop(display);
    bool hasFailed = false;
    const auto note = [&hasFailed](const osascript::Failure &failure) {
        if (!failure)
            return;
        hasFailed = true;
        std::fprintf(stderr, "open: %s\n", qUtf8Printable(*failure));
    };
    if (request.targets.isEmpty())
        note(desktop.activate(request.application));
    for (const QString &target : request.targets)
        note(request.reveals ? desktop.reveal(target) : desktop.open(target, request.application));
    return hasFailed ? EXIT_FAILURE : EXIT_SUCCESS;
}

}

int main(int argc, char *argv[])
{
    occupyClosedStreams();
    const QCoreApplication app(argc, argv);
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    if (const auto request = parse(arguments))
        return run(*request);
    const bool isHelp = arguments.contains(u"-h"_s) || arguments.contains(u"--help"_s);
    std::fputs(usage, isHelp ? stdout : stderr);
    return isHelp ? finishOutput("open") : EXIT_FAILURE;
}
