// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "settings/KeyNames.h"

#include "base/KeyCodes.h"
#include "base/LocalizationManager.h"

#include <algorithm>
#include <iterator>
#include <utility>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

// clang-format off
constexpr std::pair<qint64, QStringView> names[] = {
    { 18, u"1" }, { 19, u"2" }, { 20, u"3" }, { 21, u"4" }, { 23, u"5" }, { 22, u"6" },
    { 26, u"7" }, { 28, u"8" }, { 25, u"9" }, { 29, u"0" },
    { 24, u"=" }, { 27, u"-" }, { 30, u"]" }, { 33, u"[" }, { 39, u"'" }, { 41, u";" },
    { 42, u"\\" }, { 43, u"," }, { 44, u"/" }, { 47, u"." }, { 50, u"`" },
    // keypad
    { 83, u"1" }, { 84, u"2" }, { 85, u"3" }, { 86, u"4" }, { 87, u"5" }, { 88, u"6" },
    { 89, u"7" }, { 91, u"8" }, { 92, u"9" }, { 82, u"0" },
    { 65, u"." }, { 67, u"*" }, { 69, u"+" }, { 75, u"/" }, { 78, u"-" }, { 81, u"=" },
    { 71, u"Clear" }, { 76, u"Enter" },

    { 36, u"Return" }, { 48, u"Tab" }, { 49, u"Space" }, { 51, u"Delete" }, { 117, u"Delete" },
    { 53, u"Esc" }, { 114, u"Help" }, { 115, u"Home" }, { 116, u"PageUp" }, { 119, u"End" },
    { 121, u"PageDown" }, { 123, u"Left" }, { 124, u"Right" }, { 125, u"Down" }, { 126, u"Up" },

    { 122, u"F1" }, { 120, u"F2" }, { 99, u"F3" }, { 118, u"F4" }, { 96, u"F5" }, { 97, u"F6" },
    { 98, u"F7" }, { 100, u"F8" }, { 101, u"F9" }, { 109, u"F10" }, { 103, u"F11" },
    { 111, u"F12" }, { 105, u"F13" }, { 107, u"F14" }, { 113, u"F15" },
};
// clang-format on

struct Modifier
{
    qint64 bit;
    QChar symbol;
    QStringView word;
};

constexpr Modifier allModifiers[] = {
    { KeyCodes::control, u'⌃', u"Ctrl" },
    { KeyCodes::option, u'⌥', u"Alt" },
    { KeyCodes::shift, u'⇧', u"Shift" },
    { KeyCodes::command, u'⌘', u"Super" },
};

}

QString keyCodeToString(qint64 keyCode)
{
    const auto *name = std::find_if(std::begin(names), std::end(names),
                                    [=](const auto &key) { return key.first == keyCode; });
    if (name != std::end(names))
        return localized(name->second.toString());
    const auto letter = KeyCodes::ansiCharacter(keyCode);
    return letter ? QString(QLatin1Char(*letter)) : localized(u"Key %1"_s).arg(keyCode);
}

QString shortcutText(qint64 keyCode, qint64 modifiers)
{
    QString text;
    for (const Modifier &modifier : allModifiers) {
        if (modifiers & modifier.bit)
            text += modifier.symbol;
    }
    return text + keyCodeToString(keyCode);
}

QString spelledShortcut(qint64 keyCode, qint64 modifiers)
{
    QString text;
    for (const Modifier &modifier : allModifiers) {
        if (modifiers & modifier.bit)
            text += localized(modifier.word.toString()) + u'+';
    }
    return text + keyCodeToString(keyCode);
}

}
