// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QString>

namespace Tessel {

/// X keysyms (X11/keysymdef.h) that a keyboard types texts by.
namespace KeySymbols {

/// 0 for controls other than line ends, tab, backspace and escape: no keyboard has them.
[[nodiscard]] quint32 ofCharacter(char32_t character);

/// Without the characters that no keyboard has.
[[nodiscard]] QList<quint32> ofText(const QString &text);

}

}
