// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "config/NotificationCenter.h"

namespace Tessel {

NotificationCenter &NotificationCenter::defaultCenter()
{
    static auto *center = new NotificationCenter; // outlives everything that may announce at exit
    return *center;
}

}
