// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "bar/PanelKeys.h"

#include "bar/PanelLayout.h"
#include "base/KeyCodes.h"

namespace Tessel {

using Kind = PanelKeyDecision::Kind;

PanelKeyDecision decidePanelKey(const PanelKey &key, bool shortcutsEnabled)
{
    if (key.keyCode == KeyCodes::keyEscape)
        return { Kind::hide };
    if (key.isCommand)
        return { key.keyCode == KeyCodes::keyComma ? Kind::openSettings : Kind::ignore };
    if (!shortcutsEnabled || key.characters.isEmpty())
        return {};
    auto button = PanelLayout::buttonForCharacter(key.characters.at(0).toUpper());
    if (!button) {
        if (const auto character = KeyCodes::ansiCharacter(key.keyCode))
            button = PanelLayout::buttonForCharacter(QLatin1Char(*character));
    }
    return button ? PanelKeyDecision { Kind::pick, *button } : PanelKeyDecision {};
}

}
