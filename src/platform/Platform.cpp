// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/Platform.h"

namespace Tessel {

namespace {
Platform *currentPlatform = nullptr;
}

Platform &Platform::current()
{
    Q_ASSERT(currentPlatform);
    return *currentPlatform;
}

void Platform::setCurrent(Platform *platform)
{
    currentPlatform = platform;
}

}
