// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "base/Memory.h"

#include <cstdlib> // defines __GLIBC__

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace Tessel {

void releaseUnusedMemory()
{
#ifdef __GLIBC__
    ::malloc_trim(0);
#endif
}

}
