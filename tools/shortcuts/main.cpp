// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "base/BaseFolders.h"
#include "base/ClosedStreams.h"
#include "lib/shortcuts/UserShortcuts.h"
#include "lib/support/StandardStreams.h"

#include <QFile>

#include <cstdio>
#include <cstdlib>

#include <unistd.h>

using namespace Tessel;
using namespace Qt::StringLiterals;

namespace {

constexpr auto usage
    = "Usage: shortcuts list\n"
      "       shortcuts run NAME [-i FILE] [-o FILE]\n"
      "\n"
      "Shortcuts are executable files in ~/.local/share/tessel/shortcuts, named\n"
      "without their extension. The input is FILE, or standard input with \"-\" or\n"
      "without -i; the output goes to FILE or to standard output.\n";

struct Run
{
    QString name;
    QString input = u"-"_s;
    QString output = u"-"_s;
};

int fail(const QString &message)
{
    std::fprintf(stderr, "shortcuts: %s\n", qUtf8Printable(message));
    return EXIT_FAILURE;
}

std::optional<Run> parseRun(const QStringList &arguments)
{
    if (arguments.isEmpty())
        return {};
    Run run { arguments.first() };
    for (qsizetype i = 1; i < arguments.size(); i += 2) {
        const QString &option = arguments[i];
        if (i + 1 == arguments.size())
            return {};
        if (option == u"-i" || option == u"--input-path")
            run.input = arguments[i + 1];
        else if (option == u"-o" || option == u"--output-path")
            run.output = arguments[i + 1];
        else
            return {};
    }
    return run;
}

bool open(QFile &file, const QString &path, FILE *stream, QIODevice::OpenMode mode)
{
    if (path == u"-")
        return file.open(stream, mode);
    file.setFileName(path);
    return file.open(mode);
}

int run(const Run &request)
{
    QByteArray input;
    if (request.input != u"-" || !isatty(STDIN_FILENO)) {
        QFile file;
        if (!open(file, request.input, stdin, QIODevice::ReadOnly))
            return fail(request.input + u": "_s + file.errorString());
        const auto bytes = readInput(file);
        if (!bytes)
            return fail(request.input + u": "_s + bytes.error().reason);
        input = *bytes;
    }
    const auto outcome = UserShortcuts().run(request.name, input);
    QFile file;
    if (!open(file, request.output, stdout, QIODevice::WriteOnly)
        || file.write(outcome.output) != outcome.output.size() || !file.flush())
        return fail(request.output + u": "_s + file.errorString());
    return outcome.result ? EXIT_SUCCESS : fail(outcome.result.error().reason);
}

int list()
{
    for (const QString &name : UserShortcuts().names())
        std::puts(qUtf8Printable(name));
    return finishOutput("shortcuts");
}

}

int main(int argc, char *argv[])
{
    occupyClosedStreams();
    BaseFolders::dropRelative();
    const QCoreApplication app(argc, argv);
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    const QString command = arguments.value(0);
    if (command == u"list" && arguments.size() == 1)
        return list();
    if (command == u"run") {
        if (const auto request = parseRun(arguments.mid(1)))
            return run(*request);
    }
    const bool isHelp = command == u"help" || command == u"-h" || command == u"--help";
    std::fputs(usage, isHelp ? stdout : stderr);
    return isHelp ? finishOutput("shortcuts") : EXIT_FAILURE;
}
