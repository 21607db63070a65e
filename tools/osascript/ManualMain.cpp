// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/Manual.h"

#include <cstdio>

using namespace Tessel;

/// Prints docs/applescript.md.
int main()
{
    std::fputs(Osascript::manual().toUtf8().constData(), stdout);
    return 0;
}
