// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/runtime/ShellCommand.h"

#include "base/RunCommand.h"
#include "base/ShellRequest.h"
#include "base/TextRules.h"
#include "osascript/values/ScriptError.h"
#include "osascript/values/Value.h"

#include <csignal>

using namespace Qt::StringLiterals;

namespace Tessel::Osascript {

namespace {

constexpr qsizetype maxOutput = 64 << 20; // bytes

/// The process group to end with this program; 0: none.
volatile sig_atomic_t runningGroup = 0;

void endChildrenAndSelf(int signal)
{
    if (runningGroup > 0)
        kill(-static_cast<pid_t>(runningGroup), SIGTERM);
    // The action was reset when the handler was entered.
    raise(signal);
}

void installHandlers()
{
    struct sigaction action
    {
    };
    action.sa_handler = endChildrenAndSelf;
    action.sa_flags = static_cast<int>(SA_RESETHAND | SA_NODEFER);
    for (const int signal : { SIGTERM, SIGINT, SIGHUP })
        sigaction(signal, &action, nullptr);
}

CommandResult run(const QString &command)
{
    installHandlers();
    const CommandRequest shell {
        .program = u"/bin/sh"_s,
        .arguments = { u"sh"_s }, // what messages begin with
        .input = QByteArray(),
        .group = CommandRequest::Group::own,
        .endsWithParent = true,
    };
    auto child = ChildProcess::start(shellRequest(shell, command));
    if (!child)
        fail(ScriptError::failed, u"The command cannot be started. "_s + child.error().reason);
    runningGroup = child->id();
    auto result = readToEnd(*child, maxOutput);
    runningGroup = 0;
    if (!result)
        fail(ScriptError::outOfMemory, u"Out of memory: the command’s output is too long."_s);
    return *std::move(result);
}

QString withoutLastLineBreak(QString text)
{
    if (text.endsWith(u'\n'))
        text.chop(1);
    return text;
}

}

QString shellOutput(const QString &command, LineEndings lineEndings)
{
    const CommandResult result = run(command);
    if (result.exitStatus != 0) {
        const QString message = withoutLastLineBreak(exactText(result.errorOutput));
        failWith(result.exitStatus,
                 message.isEmpty() ? u"The command exited with a non-zero status."_s : message);
    }
    const QString text = exactText(result.output);
    checkTextSize(text.size());
    return lineEndings == LineEndings::kept ? text
                                            : withoutLastLineBreak(text).replace(u'\n', u'\r');
}

}
