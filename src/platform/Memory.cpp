// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/Memory.h"

#include <cstdlib> // defines __GLIBC__

#ifdef __GLIBC__
#include <malloc.h>
#endif

void releaseUnusedMemory()
{
#ifdef __GLIBC__
    ::malloc_trim(0);
#endif
}
