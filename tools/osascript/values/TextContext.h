// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

namespace Tessel::Osascript {

/// What a comparison of texts takes no notice of; `considering` and `ignoring` change it.
struct ComparisonRules
{
    bool ignoresCase = true;
    bool ignoresDiacriticals = false;
    bool ignoresWhiteSpace = false;
    bool ignoresPunctuation = false;
    bool ignoresHyphens = false;
    bool comparesNumbers = false; ///< "1.10" comes after "1.9"
};

/// What the place in the script lends to operations on texts.
struct TextContext
{
    ComparisonRules rules;
    QStringList delimiters = { QString() }; ///< text item delimiters
};

}
