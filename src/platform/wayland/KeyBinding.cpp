// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/wayland/KeyBinding.h"

#include "base/KeyCodes.h"
#include "base/LocalizationManager.h"
#include "platform/EventMonitor.h"

#include <QStringList>

#include <memory>
#include <xkbcommon/xkbcommon.h>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

struct Notation
{
    const char *variable; ///< that the compositor sets for the programs of its session
    QStringView command; ///< Super
    QStringView control;
    QStringView option; ///< Alt
    QStringView shift;
    QChar separator; ///< between modifiers and before the key; null: none
    QStringView line; ///< %1: all of that, or with %2 the modifiers
};

constexpr Notation portal { "", u"LOGO", u"CTRL", u"ALT", u"SHIFT", u'+', u"%1" };

constexpr Notation gnome { "", u"Super", u"Ctrl", u"Alt", u"Shift", u'+', u"%1" };

constexpr Notation compositors[] = {
    // A configuration with a keybind of its own has no others, unless it says so.
    { "LABWC_PID",
      u"W-",
      u"C-",
      u"A-",
      u"S-",
      {},
      u"<keyboard><default/><keybind key=\"%1\"><action name=\"Execute\" "
      "command=\"tessel --trigger\"/></keybind></keyboard>" },
    { "HYPRLAND_INSTANCE_SIGNATURE", u"SUPER", u"CTRL", u"ALT", u"SHIFT", u' ',
      u"bind = %1, %2, exec, tessel --trigger" },
    { "NIRI_SOCKET", u"Super", u"Ctrl", u"Alt", u"Shift", u'+',
      u"binds { %1 { spawn \"tessel\" \"--trigger\"; } }" },
};

/// The name of the symbol (xkbcommon-keysyms.h) that the key has on a US keyboard.
QString symbolOf(qint64 keyCode)
{
    const auto scanCode = KeyCodes::scanCodeFromVirtual(keyCode);
    const std::unique_ptr<xkb_context, void (*)(xkb_context *)> context(
        xkb_context_new(XKB_CONTEXT_NO_FLAGS), xkb_context_unref);
    xkb_rule_names names = {};
    names.layout = "us";
    const std::unique_ptr<xkb_keymap, void (*)(xkb_keymap *)> keymap(
        xkb_keymap_new_from_names(context.get(), &names, XKB_KEYMAP_COMPILE_NO_FLAGS),
        xkb_keymap_unref);
    const xkb_keysym_t *symbols = nullptr;
    if (!scanCode || !keymap
        || xkb_keymap_key_get_syms_by_level(keymap.get(), *scanCode, 0, 0, &symbols) != 1)
        return {};
    char name[64] = {};
    xkb_keysym_get_name(*symbols, name, sizeof name);
    return QString::fromLatin1(name);
}

QString written(const KeyChord &chord, const Notation &notation)
{
    const QString key = symbolOf(chord.keyCode);
    if (key.isEmpty())
        return {};
    QStringList parts;
    for (const auto &[bit, name] : { std::pair(KeyCodes::command, notation.command),
                                     std::pair(KeyCodes::control, notation.control),
                                     std::pair(KeyCodes::option, notation.option),
                                     std::pair(KeyCodes::shift, notation.shift) }) {
        if (chord.modifiers & bit)
            parts += name.toString();
    }
    const QString between = notation.separator.isNull() ? QString() : QString(notation.separator);
    if (notation.line.contains(u"%2"))
        return notation.line.toString().arg(parts.join(between), key);
    return notation.line.toString().arg((parts + QStringList(key)).join(between));
}

}

QString KeyBinding::shortcut(const KeyChord &chord)
{
    return written(chord, portal);
}

QString KeyBinding::inGnome(const KeyChord &chord)
{
    const QString key = written(chord, gnome);
    const QString place
        = localized(u"Keyboard > View and Customize Shortcuts > Custom Shortcuts: %1"_s);
    return key.isEmpty() ? key : place.arg(key + u", tessel --trigger"_s);
}

QString KeyBinding::configuration(const KeyChord &chord)
{
    for (const Notation &compositor : compositors) {
        if (qEnvironmentVariableIsSet(compositor.variable))
            return written(chord, compositor);
    }
    return {};
}

}
