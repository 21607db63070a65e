// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "actions/ScriptAction.h"

#include "actions/Placeholder.h"
#include "base/ChildProcess.h"
#include "base/HelperFolder.h"
#include "base/TextRules.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

const auto shortcutScript = uR"(    tell application "Shortcuts"
        -- The shortcut of exactly this name comes first.
        try
            set targetShortcut to first shortcut whose name is n
            run targetShortcut with input t
            -- The input is part of the message, to check by what went in.
            return "Success: Ran '" & n & "' with Input: [" & t & "]"
        on error
            -- Then one whose name contains it.
            try
                set targetShortcut to first shortcut whose name contains n
                run targetShortcut with input t
                -- The input is part of the message here, too.
                return "Success: Ran similar '" & (name of targetShortcut) & "' with Input: [" & t & "]"
            end try
        end try
    end tell
    return "Error: Shortcut not found"
end run
)"_s;

/// Runners may quote the text several times in what they print.
CommandRequest request(const QString &runner, const QStringList &arguments, const QString &text)
{
    constexpr qsizetype least = 256 << 10;
    return { .program = runner,
             .arguments = arguments,
             .errorOutput = CommandRequest::Output::merged,
             .pipeSize = static_cast<int>(least + 8 * text.size()) };
}

/// A script that is too long for an argument is a file for the runner.
CommandRequest inFile(CommandRequest request, const QString &script, const QStringList &arguments)
{
    request.arguments = QStringList { u"/dev/fd/3"_s } + arguments;
    request.furtherInput = script.toUtf8();
    return request;
}

}

QString scriptRunner()
{
    const QString systems = u"/usr/bin/osascript"_s;
    return QFileInfo(systems).isExecutable() ? systems : helperFolder() + u"/osascript"_s;
}

CommandRequest appleScriptRequest(const QString &script, const QString &text, const QString &runner)
{
    const QString source
        = Placeholder::substitute(script, Placeholder::escapedForAppleScript(text));
    const CommandRequest direct = request(runner, { u"-e"_s, source }, text);
    return canBeHandedOver(direct) ? direct : inFile(direct, source, {});
}

QString shortcutName(const QString &typed)
{
    return typed.normalized(QString::NormalizationForm_C);
}

CommandRequest shortcutRequest(const QString &name, const QString &text, const QString &runner)
{
    QStringList arguments { u"-e"_s, u"on run {t, n}\n"_s + shortcutScript };
    if (text.startsWith(u'-') || name.startsWith(u'-'))
        arguments += u"--"_s; // or the runner would take them for options, "-e" among them
    CommandRequest direct = request(runner, arguments + QStringList { text, name }, text);
    if (canBeHandedOver(direct))
        return direct;
    const QString start = u"on run {n}\n    set t to \"%1\"\n"_s;
    return inFile(direct, start.arg(Placeholder::escapedForAppleScript(text)) + shortcutScript,
                  { name });
}

QString scriptLogLine(const QString &what, const Result<CommandResult> &result)
{
    if (!result)
        return u"ERROR: "_s + what + u" execution failed: "_s + result.error().reason;
    const QString title = what == u"Shortcut" ? u"Shortcut Result: "_s : what + u" Output: "_s;
    if (!result->output.isValidUtf8() || result->output.isEmpty())
        return {};
    return title + exactText(result->output).trimmed();
}

}
