// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

namespace Tessel {

/// From now on, Qt's own texts (of file dialogs, of the menus of text fields) are in the language
/// of ours, where Qt's translations are installed; else they stay English.
void translateQtTexts();

}
