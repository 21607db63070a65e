// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

/// A script and what it must do, as the files in cases/ have them: a block of lines between empty
/// ones, in this order:
///
///     [clipboard: text]      what is on the clipboard first
///     [answer: text]         how dialogs are answered
///     [arguments: a | b]     of the run handler
///     the script
///     >> type "v" command    what is asked of the desktop, or logged, in this order
///     => {1, "two"}          the result as it is written in a script, or "nothing"
///     !> -1728 Can’t …       or the error: its number, and its message if it matters
///
/// In brackets, \n, \r and \t are what they are in a script; a carriage return in a result is
/// written \r, the home folder ~, and a calendar's file in it ~/ICS. "# " starts the name of the
/// rows that follow.
struct Case
{
    QString name;
    QString clipboard;
    QString answer;
    QStringList arguments;
    QString script;
    QStringList recorded;
    QString result; ///< or empty
    QString error; ///< or empty
};

[[nodiscard]] QList<Case> readCases(const QString &path);
