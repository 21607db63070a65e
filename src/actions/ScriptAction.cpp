// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "actions/ScriptAction.h"

#include "actions/Placeholder.h"
#include "base/HelperFolder.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

constexpr QStringView shortcutScript = uR"(on run {t, n}
    tell application "Shortcuts"
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
)";

CommandRequest request(const QString &runner, const QStringList &arguments)
{
    constexpr int pipeSize = 256 << 10; // runners quote their input, up to 128 KiB
    return { .program = runner,
             .arguments = arguments,
             .errorOutput = CommandRequest::Output::merged,
             .pipeSize = pipeSize };
}

}

QString scriptRunner()
{
    const QString systems = u"/usr/bin/osascript"_s;
    return QFileInfo(systems).isExecutable() ? systems : helperFolder() + u"/osascript"_s;
}

CommandRequest appleScriptRequest(const QString &script, const QString &text, const QString &runner)
{
    return request(
        runner,
        { u"-e"_s, Placeholder::substitute(script, Placeholder::escapedForAppleScript(text)) });
}

QString shortcutName(const QString &typed)
{
    return typed.normalized(QString::NormalizationForm_C);
}

CommandRequest shortcutRequest(const QString &name, const QString &text, const QString &runner)
{
    QStringList arguments { u"-e"_s, shortcutScript.toString() };
    if (text.startsWith(u'-') || name.startsWith(u'-'))
        arguments += u"--"_s; // or the runner would take them for options, "-e" among them
    return request(runner, arguments + QStringList { text, name });
}

QString scriptLogLine(const QString &what, const Result<CommandResult> &result)
{
    if (!result)
        return u"ERROR: "_s + what + u" execution failed: "_s + result.error().reason;
    const QString title = what == u"Shortcut" ? u"Shortcut Result: "_s : what + u" Output: "_s;
    if (!result->output.isValidUtf8() || result->output.isEmpty())
        return {};
    return title + QString::fromUtf8(result->output).trimmed();
}

}
