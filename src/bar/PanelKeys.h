// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

namespace Tessel {

struct PopupKey;

/// What a key press does while the bar is shown.
struct PanelKeyDecision
{
    enum class Kind { ignore, hide, openSettings, pick };

    Kind kind = Kind::ignore;
    int button = -1; ///< for `pick`: position among the buttons, which may be fewer

    friend bool operator==(const PanelKeyDecision &, const PanelKeyDecision &) = default;
};

/// On layouts that give other characters (Cyrillic, Hangul, AZERTY digits) the key's place counts.
[[nodiscard]] PanelKeyDecision decidePanelKey(const PopupKey &key, bool shortcutsEnabled);

/// Whether a bar of so many buttons takes the key from the application in front.
[[nodiscard]] bool takesPanelKey(const PopupKey &key, bool shortcutsEnabled, qsizetype buttons);

}
