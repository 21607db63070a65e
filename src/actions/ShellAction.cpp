// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "actions/ShellAction.h"

#include "actions/Placeholder.h"
#include "base/ChildProcess.h"
#include "base/LocalizationManager.h"
#include "base/ShellRequest.h"
#include "base/TextRules.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

const auto textVariable = u"TESSEL_TEXT"_s;

std::optional<QString> decoded(const QByteArray &bytes)
{
    return bytes.isValidUtf8() ? std::optional(exactText(bytes)) : std::nullopt;
}

}

QString defaultShell()
{
    const QString zsh = u"/bin/zsh"_s;
    return QFileInfo(zsh).isExecutable() ? zsh : u"/bin/sh"_s;
}

CommandRequest shellCommandRequest(const QString &commandTemplate, const QString &text,
                                   const QString &shell)
{
    CommandRequest request { .program = shell,
                             .environment
                             = { { u"LANG"_s, u"en_US.UTF-8"_s }, { textVariable, text } } };
    if (!commandTemplate.contains(textVariable) && !canBeHandedOver(request))
        request.environment[textVariable] = std::nullopt;
    return shellRequest(
        request, Placeholder::substitute(commandTemplate, Placeholder::escapedForShell(text)));
}

ShellReport shellReport(const Result<CommandResult> &result)
{
    if (!result) {
        const QString &reason = result.error().reason;
        return { u"ERROR: Shell command failed: "_s + reason,
                 ShellReport::Error {
                     localized(u"Execution Failed"_s),
                     localized(u"Could not launch the command.\n\nError:\n%1"_s).arg(reason) } };
    }
    if (result->exitStatus == 0) {
        const QString output = decoded(result->output).value_or(QString());
        return { output.isEmpty() ? QString() : u"Shell Output: "_s + output.trimmed(), {} };
    }
    const QString status = QString::number(result->exitStatus);
    const QString unknown = u"Unknown error"_s;
    const auto error = decoded(result->errorOutput);
    return {
        u"ERROR: Shell command failed with status "_s + status + u": "_s + error.value_or(unknown),
        ShellReport::Error { localized(u"Command Failed"_s),
                             localized(u"The command exited with status %1.\n\nError:\n%2"_s)
                                 .arg(status, error ? error->trimmed() : localized(unknown)) }
    };
}

}
