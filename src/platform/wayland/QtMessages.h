// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

namespace Tessel {

/// Keeps Qt from warning that it has no integration for graphics cards called "none", which it was
/// asked for; and says it as an error when Qt ends the process as the compositor has gone.
void handleQtsWaylandMessages();

}
