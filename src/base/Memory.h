// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

namespace Tessel {

/// Gives the memory that is free inside the process back to the system, where the C library keeps
/// it otherwise. Takes a few milliseconds.
void releaseUnusedMemory();

}
