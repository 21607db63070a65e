// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

namespace Tessel::Osascript {

/// A stretch of the script's text, in UTF-16 code units.
struct SourceRange
{
    qsizetype start = 0;
    qsizetype end = 0;
};

}
