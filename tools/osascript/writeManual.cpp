// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "Manual.h"

#include <cstdio>

/// Prints docs/applescript.md.
int main()
{
    std::fputs(osascript::manual().toUtf8().constData(), stdout);
    return 0;
}
