// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/KeySymbols.h"

#include "base/TextRules.h"

#include <xkbcommon/xkbcommon-keysyms.h>
#include <xkbcommon/xkbcommon.h>

namespace Tessel {

quint32 KeySymbols::ofCharacter(char32_t character)
{
    switch (character) {
    case U'\n':
        return XKB_KEY_Return;
    case U'\t':
        return XKB_KEY_Tab;
    case U'\b':
        return XKB_KEY_BackSpace;
    case U'\x1b':
        return XKB_KEY_Escape;
    default:
        return character < U' ' ? quint32(XKB_KEY_NoSymbol) : xkb_utf32_to_keysym(character);
    }
}

QList<quint32> KeySymbols::ofText(const QString &text)
{
    QList<quint32> symbols;
    for (const uint character : withNormalizedLineEnds(text).toUcs4())
        symbols += ofCharacter(character);
    symbols.removeAll(XKB_KEY_NoSymbol);
    return symbols;
}

}
