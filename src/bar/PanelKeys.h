// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace Tessel {

/// What a key press does while the bar has the keyboard.
struct PanelKey
{
    qint64 keyCode = -1; ///< virtual key code, -1 when it has none
    QString characters; ///< as the layout gives them
    bool isCommand = false; ///< Ctrl or Super is held
};

struct PanelKeyDecision
{
    enum class Kind { ignore, hide, openSettings, pick };

    Kind kind = Kind::ignore;
    int button = -1; ///< for `pick`: position among the buttons, which may be fewer

    friend bool operator==(const PanelKeyDecision &, const PanelKeyDecision &) = default;
};

/// On layouts that give other characters (Cyrillic, Hangul, AZERTY digits) the key's place counts.
[[nodiscard]] PanelKeyDecision decidePanelKey(const PanelKey &key, bool shortcutsEnabled);

}
