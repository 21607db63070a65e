// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/CommandLine.h"

#include "osascript/applications/UserFolders.h"
#include "osascript/language/ScriptSource.h"
#include "osascript/runtime/Evaluator.h"
#include "osascript/values/Coercion.h"
#include "osascript/values/Printer.h"
#include "osascript/values/ScriptError.h"

#include <QFile>

#include <cerrno>
#include <cstdio>
#include <optional>

using namespace Qt::StringLiterals;

namespace Tessel::Osascript {

namespace {

struct Request
{
    std::optional<QString> script; ///< of -e; else the first argument names a file
    PrintStyle style = PrintStyle::human;
    bool printsErrorsToOutput = false;
    QStringList arguments;
};

/// False when it could not be written, with the reason in errno.
bool print(const QString &text, FILE *stream)
{
    const QByteArray bytes = text.toUtf8();
    const auto size = static_cast<size_t>(bytes.size());
    return std::fwrite(bytes.constData(), 1, size, stream) == size && std::fflush(stream) == 0;
}

/// False for a flag that there is not.
bool setStyle(const QString &flags, Request &request)
{
    for (const QChar flag : flags) {
        if (flag == u'h' || flag == u's')
            request.style = flag == u's' ? PrintStyle::source : PrintStyle::human;
        else if (flag == u'e' || flag == u'o')
            request.printsErrorsToOutput = flag == u'o';
        else
            return false;
    }
    return true;
}

bool applyOption(QChar option, const QString &value, Request &request)
{
    switch (option.unicode()) {
    case u'e':
        request.script = request.script ? *request.script + u'\n' + value : value;
        return true;
    case u's':
        return setStyle(value, request);
    case u'l':
        return value.compare(u"AppleScript", Qt::CaseInsensitive) == 0;
    default:
        return false;
    }
}

/// Nothing when the arguments are wrong. Options end at the first argument that is none: what
/// follows is for the script.
std::optional<Request> parseArguments(QStringList arguments)
{
    Request request;
    while (!arguments.isEmpty() && arguments.constFirst().startsWith(u'-')
           && arguments.constFirst().size() > 1) {
        const QString option = arguments.takeFirst();
        if (option == u"--")
            break;
        const bool isApart = option.size() == 2; // "-e text", not "-etext"
        if (isApart && arguments.isEmpty())
            return std::nullopt;
        const QString value = isApart ? arguments.takeFirst() : option.mid(2);
        if (!applyOption(option.at(1), value, request))
            return std::nullopt;
    }
    request.arguments = arguments;
    return request;
}

/// Of the file, or of standard input for "-" and for nothing at all.
Result<QString> readScript(QStringList &arguments)
{
    const QString name = arguments.isEmpty() ? u"-"_s : arguments.takeFirst();
    QFile file(name);
    const bool isOpen
        = name == u"-" ? file.open(stdin, QIODevice::ReadOnly) : file.open(QIODevice::ReadOnly);
    Result<QString> source
        = isOpen ? readScriptSource(file) : Tessel::Failure { file.errorString() };
    if (source)
        return source;
    return Tessel::Failure { name + u": "_s + source.error().reason };
}

QString described(const ScriptError &error)
{
    const SourceRange where = error.where.value_or(SourceRange());
    const QString phase = error.phase == ScriptError::Phase::syntax ? u"syntax"_s : u"execution"_s;
    return u"%1:%2: %3 error: "_s.arg(where.start).arg(where.end).arg(phase) + error.message
        + u" (%1)\n"_s.arg(error.number);
}

}

int runCommandLine(const QStringList &arguments, Host &host)
{
    ensureHome();
    std::optional<Request> request = parseArguments(arguments);
    if (!request) {
        print(
            u"usage: osascript [-l AppleScript] [-s flags] [-e statement | file | -] [argument …]\n"_s,
            stderr);
        return 2;
    }
    const Result<QString> script
        = request->script ? *request->script : readScript(request->arguments);
    if (!script) {
        print(u"osascript: "_s + script.error().reason + u'\n', stderr);
        return 1;
    }
    try {
        Evaluator evaluator(host);
        const Value result = evaluator.run(*script, Value::texts(request->arguments).items());
        evaluator.finish();
        if (result.isNothing() || print(printed(result, request->style) + u'\n', stdout))
            return 0;
        print(u"osascript: standard output: "_s + qt_error_string(errno) + u'\n', stderr);
    } catch (const ScriptError &error) {
        print(described(error), request->printsErrorsToOutput ? stdout : stderr);
    }
    return 1;
}

}
