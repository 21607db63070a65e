// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

namespace Tessel {

/// Lets Super do in all windows of the program what Ctrl does to text: undo, redo, cut, copy,
/// paste, select all. With any other key it types nothing.
void installEditingKeys();

}
