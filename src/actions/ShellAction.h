// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Command.h"
#include "base/Result.h"

#include <QString>

#include <optional>

namespace Tessel {

/// The Z shell, which actions are written for; where it is not installed, the system's shell.
[[nodiscard]] QString defaultShell();

/// A command with the text built into it. "{text}" in the template is meant to stand between single
/// quotes; the variable TESSEL_TEXT has the text as it is. It is left out when no variable can have
/// the text and the template does not name it.
[[nodiscard]] CommandRequest shellCommandRequest(const QString &commandTemplate,
                                                 const QString &text, const QString &shell);

/// What is made known of how a command went.
struct ShellReport
{
    struct Error
    {
        QString title;
        QString message;
    };

    QString logLine; ///< empty when there is nothing to log
    std::optional<Error> error; ///< what the user has to see
};

[[nodiscard]] ShellReport shellReport(const Result<CommandResult> &result);

}
