// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "bar/PanelKeys.h"

#include "bar/PanelLayout.h"
#include "base/KeyCodes.h"
#include "platform/PopupHost.h"

namespace Tessel {

using Kind = PanelKeyDecision::Kind;

PanelKeyDecision decidePanelKey(const PopupKey &key, bool shortcutsEnabled)
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

bool takesPanelKey(const PopupKey &key, bool shortcutsEnabled, qsizetype buttons)
{
    const PanelKeyDecision decision = decidePanelKey(key, shortcutsEnabled);
    switch (decision.kind) {
    case Kind::ignore:
        return false;
    case Kind::hide:
        return !key.isCommand; // Ctrl+Escape is a key of desktops
    case Kind::openSettings:
        return true;
    case Kind::pick:
        return decision.button < buttons;
    }
    Q_UNREACHABLE();
}

}
