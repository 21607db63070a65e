// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

namespace Tessel {

/// Keeps connections and files from becoming a standard stream that the caller has closed, which
/// would then be read or written in its place. To be called first; using such a stream fails as
/// before.
void occupyClosedStreams();

}
