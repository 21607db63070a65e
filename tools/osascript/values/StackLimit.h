// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

namespace Tessel::Osascript {

/// Raises "Stack overflow." when the thread's stack is three quarters full. Whatever recurses over
/// a script or over values calls it, since both nest as deeply as the script's author likes.
void checkStack();

}
