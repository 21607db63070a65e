// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace Tessel::Desktop {

// A shell script that shows a text and notes each interrupt as a line of a file, which exists once
// the text is to be seen: the terminal answers where its cursor is (ECMA-48, DSR) when it has drawn
// what came before.
[[nodiscard]] inline QString terminalProgram(const QString &textFile, const QString &interruptsFile)
{
    return QStringLiteral("cat '%1'\n"
                          "trap 'echo interrupted >>\"%2\"' INT\n"
                          "stty -echo -icanon; printf '\\033[6n'; head -c 1 >/dev/null; stty sane\n"
                          ">'%2'\n"
                          "while :; do sleep 0.1; done\n")
        .arg(textFile, interruptsFile);
}

}
