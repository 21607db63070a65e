// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/runtime/StandardAdditions.h"

#include "osascript/applications/UserFolders.h"
#include "osascript/runtime/DialogCommands.h"
#include "osascript/runtime/ShellCommand.h"
#include "osascript/values/Coercion.h"
#include "osascript/values/Comparison.h"
#include "osascript/values/DateValue.h"
#include "osascript/values/NumberFormat.h"
#include "osascript/values/Printer.h"
#include "osascript/values/ScriptError.h"
#include "osascript/values/TextElements.h"
#include "osascript/values/ValueProperties.h"

#include <QHash>
#include <QRandomGenerator>

#include <cmath>
#include <cstdio>
#include <thread>

using namespace Qt::StringLiterals;

namespace Tessel::Osascript {

namespace {

Value clipboard(const Invocation & /*call*/, const TextContext & /*context*/, Host &host)
{
    return Value(host.clipboard.text().value_or(QString()));
}

Value setClipboard(const Invocation &call, const TextContext &context, Host &host)
{
    check(host.clipboard.setText(withLineFeeds(toText(call.direct, context))));
    return {};
}

Value doShellScript(const Invocation &call, const TextContext &context, Host & /*host*/)
{
    const Value administrator = call.argument(u"administrator privileges");
    if (!administrator.isNothing() && toBoolean(administrator))
        fail(ScriptError::notAllowed, u"Administrator privileges are not available to scripts."_s);
    const Value altering = call.argument(u"altering line endings");
    const bool keepsLineEndings = !altering.isNothing() && !toBoolean(altering);
    return Value(shellOutput(toText(call.direct, context),
                             keepsLineEndings ? LineEndings::kept : LineEndings::altered));
}

Value openLocation(const Invocation &call, const TextContext &context, Host &host)
{
    check(host.desktop.open(toText(call.direct, context), {}));
    return {};
}

Value delay(const Invocation &call, const TextContext & /*context*/, Host & /*host*/)
{
    constexpr double maxSeconds = 1e9;
    const double seconds = call.direct.isNothing() ? 0 : toReal(call.direct);
    if (seconds > 0)
        std::this_thread::sleep_for(std::chrono::duration<double>(std::min(seconds, maxSeconds)));
    return {};
}

Value beep(const Invocation &call, const TextContext & /*context*/, Host &host)
{
    for (qint64 left = call.direct.isNothing() ? 1 : toInteger(call.direct); left > 0; --left)
        host.dialogs.beep();
    return {};
}

Value say(const Invocation &call, const TextContext &context, Host &host)
{
    check(host.dialogs.say(toText(call.direct, context)));
    return {};
}

Value writeLog(const Invocation &call, const TextContext & /*context*/, Host & /*host*/)
{
    const QByteArray line = printed(call.direct, PrintStyle::human).toUtf8() + '\n';
    std::fwrite(line.constData(), 1, static_cast<size_t>(line.size()), stderr);
    return {};
}

Value timeToGmt(const Invocation & /*call*/, const TextContext & /*context*/, Host & /*host*/)
{
    return Value(qint64 { QDateTime::currentDateTime().offsetFromUtc() });
}

Value currentDate(const Invocation & /*call*/, const TextContext & /*context*/, Host & /*host*/)
{
    return Value::date(currentWallClock());
}

/// Between integers an integer, with both ends; else a real.
Value randomNumber(const Invocation &call, const TextContext & /*context*/, Host & /*host*/)
{
    const Value from = call.argument(u"from");
    const Value to = call.direct.isNothing() ? call.argument(u"to") : call.direct;
    QRandomGenerator &generator = *QRandomGenerator::global();
    if (from.isNothing() && to.isNothing())
        return Value(generator.generateDouble());
    const Value least = from.isNothing() ? Value(qint64 {}) : toNumber(from);
    const Value greatest = to.isNothing() ? Value(qint64 { 100 }) : toNumber(to);
    const auto [low, high] = std::minmax({ toReal(least), toReal(greatest) });
    if (least.is<qint64>() && greatest.is<qint64>())
        return wholeNumber(low + std::floor(generator.generateDouble() * (high - low + 1)));
    return Value(low + generator.generateDouble() * (high - low));
}

Value roundNumber(const Invocation &call, const TextContext & /*context*/, Host & /*host*/)
{
    const double number = toReal(call.direct);
    const Value rounding = call.argument(u"rounding");
    const QString way = rounding.isText() ? rounding.get<QString>() : u"to nearest"_s;
    if (way == u"up")
        return wholeNumber(std::ceil(number));
    if (way == u"down")
        return wholeNumber(std::floor(number));
    if (way == u"toward zero")
        return wholeNumber(std::trunc(number));
    if (way == u"as taught in school")
        return wholeNumber(std::round(number)); // halves away from zero
    return wholeNumber(std::nearbyint(number)); // halves to the even
}

Value offset(const Invocation &call, const TextContext &context, Host & /*host*/)
{
    const Value part = call.argument(u"of");
    const Value text = call.argument(u"in");
    if (part.isNothing() || text.isNothing())
        fail(ScriptError::missingParameter, u"The offset needs a text of it and a text in it."_s);
    return Value(qint64 { offsetOf(toText(part, context), toText(text, context), context) });
}

Value textOfId(const Invocation &call, const TextContext & /*context*/, Host & /*host*/)
{
    return Value(textOfCodePoints(call.direct));
}

Value asciiNumber(const Invocation &call, const TextContext &context, Host & /*host*/)
{
    const QList<uint> points = toText(call.direct, context).toUcs4();
    return Value(qint64 { points.isEmpty() ? 0 : points.constFirst() });
}

/// A folder's path ends in a slash. An application is told by its name, wherever its files are.
Value pathTo(const Invocation &call, const TextContext & /*context*/, Host &host)
{
    if (call.direct.get<QString>() == u"frontmost application") {
        const QList<Process> processes = host.desktop.processes();
        if (processes.isEmpty())
            failToGet(u"frontmost application"_s);
        return Value(processes.constFirst().name);
    }
    return Value(File { userFolder(call.direct.get<QString>()) + u'/', true });
}

Value systemAttribute(const Invocation &call, const TextContext &context, Host & /*host*/)
{
    return Value(qEnvironmentVariable(toText(call.direct, context).toLocal8Bit().constData()));
}

}

StandardAdditions::StandardAdditions(Host &host)
    : m_host(host)
{
}

Value StandardAdditions::perform(const Invocation &invocation, const TextContext &context)
{
    using Function = Value (*)(const Invocation &, const TextContext &, Host &);
    static const QHash<QStringView, Function> functions {
        { u"the clipboard", clipboard },
        { u"set the clipboard to", setClipboard },
        { u"do shell script", doShellScript },
        { u"display dialog", displayDialog },
        { u"display alert", displayAlert },
        { u"display notification", displayNotification },
        { u"choose from list", chooseFromList },
        { u"open location", openLocation },
        { u"delay", delay },
        { u"beep", beep },
        { u"say", say },
        { u"log", writeLog },
        { u"current date", currentDate },
        { u"time to GMT", timeToGmt },
        { u"random number", randomNumber },
        { u"round", roundNumber },
        { u"offset", offset },
        { u"character id", textOfId },
        { u"string id", textOfId },
        { u"ASCII character", textOfId },
        { u"ASCII number", asciiNumber },
        { u"path to", pathTo },
        { u"system attribute", systemAttribute },
    };
    return functions.value(invocation.command->words)(invocation, context, m_host);
}

}
