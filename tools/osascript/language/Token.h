// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "osascript/values/SourceRange.h"

#include <QString>

namespace Tessel::Osascript {

struct Token
{
    enum class Kind {
        word, ///< text is in the author's case
        name, ///< between bars, never a term
        integer,
        real,
        text, ///< without its quotes and escapes
        symbol, ///< text is the symbol; ≤ is "<=", ≠ is "/=", ÷ is "/"; `'s` is one, too
        lineEnd,
        end,
    };

    Kind kind = Kind::end;
    QString text = {};
    SourceRange where = {};
};

}
