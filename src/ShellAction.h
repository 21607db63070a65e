// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "CommandRunner.h"

#include <QCoreApplication>
#include <QString>

#include <optional>

/// The Z shell, which actions are written for; where it is not installed, the system's shell.
[[nodiscard]] QString defaultShell();

/// A command with the text built into it. "{text}" in the template is meant to stand between single
/// quotes; the variable TESSEL_TEXT has the text as it is.
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

[[nodiscard]] ShellReport shellReport(const CommandResult &result);

/// Where the programs are that commands find before the system's own: installed beside the program,
/// else in the build folder.
[[nodiscard]] QString helperFolder(const QString &programFolder
                                   = QCoreApplication::applicationDirPath());

/// Puts the helper folder first on the PATH of the process, and so of its children. To be called
/// once, when the application object exists and no thread reads the environment.
void prependHelperFolderToPath();
