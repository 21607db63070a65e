// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

namespace Tessel {

/// Gives a window of ours the keys that end it: Ctrl or Super with W closes it, with Q ends the
/// program. Text fields bring the editing keys themselves.
void addWindowCommands(QWidget *window);

}
