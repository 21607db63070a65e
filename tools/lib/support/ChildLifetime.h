// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

class QProcess;

namespace Tessel {

/// Has the program ended (SIGTERM) when this one ends, however that comes about: who stops a script
/// stops what it waits for. To be called before the start.
void endWithParent(QProcess &process);

}
