// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/Terminals.h"

#include "platform/Workspace.h"

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

constexpr QStringView terminalClasses[] = {
    u"alacritty",
    u"cool-retro-term",
    u"deepin-terminal",
    u"eterm",
    u"foot",
    u"ghostty",
    u"gnome-terminal",
    u"gnome-terminal-server",
    u"guake",
    u"hyper",
    u"kitty",
    u"konsole",
    u"koi8rxterm",
    u"lilyterm",
    u"lxterm",
    u"lxterminal",
    u"mate-terminal",
    u"mlterm",
    u"mrxvt",
    u"ptyxis",
    u"qterminal",
    u"rxvt",
    u"rxvt-unicode",
    u"roxterm",
    u"sakura",
    u"st",
    u"st-256color",
    u"stterm",
    u"terminator",
    u"terminology",
    u"termite",
    u"tilda",
    u"tilix",
    u"urxvt",
    u"uxterm",
    u"wezterm",
    u"x-terminal-emulator", // Debian's alternatives: GTK makes the program's own name the window's
    u"xfce4-terminal",
    u"xterm",
    u"yakuake",
    u"zutty",
};

/// What others take for shortcuts they give to the program in them.
constexpr QStringView withoutShortcuts[] = {
    u"aterm", u"eterm",        u"koi8rxterm", u"lxterm", u"mlterm", u"mrxvt",
    u"rxvt",  u"rxvt-unicode", u"urxvt",      u"uxterm", u"xterm",
};

constexpr QStringView modalEditorClasses[] = {
    u"goneovim", u"gvim", u"neovide", u"nvim-gtk", u"nvim-qt", u"neovim-qt", u"neovim-gtk",
};

template <typename Table> bool contains(const Table &table, QStringView name)
{
    return std::any_of(std::begin(table), std::end(table), [name](QStringView entry) {
        return entry.compare(name, Qt::CaseInsensitive) == 0;
    });
}

}

bool Terminals::isTerminalClass(const QString &windowClass)
{
    return contains(terminalClasses, windowClass);
}

bool Terminals::isModalEditorClass(const QString &windowClass)
{
    return contains(modalEditorClasses, windowClass);
}

bool Terminals::hasControlShiftShortcuts(const QString &identifier)
{
    // Desktop entries carry a vendor prefix: "debian-xterm".
    const QStringView name = QStringView(identifier).mid(identifier.indexOf(u'-') + 1);
    return !contains(withoutShortcuts, identifier) && !contains(withoutShortcuts, name);
}

Result<ShortcutModifiers> Terminals::shortcutIn(const FrontApplication &application,
                                                ShortcutKey key, ShortcutModifiers modifiers)
{
    if (!modifiers.command || !application.isTerminal)
        return modifiers;
    const QString &name = application.localizedName;
    // Some make an interrupt of Ctrl+Shift+C when nothing is selected (Konsole, Terminator).
    if (key == ShortcutKey::c)
        return Failure {
            u"%1 is a terminal: copying there could interrupt the program in it."_s.arg(name)
        };
    if (!hasControlShiftShortcuts(application.bundleIdentifier.value_or(QString())))
        return Failure {
            u"%1 has no shortcuts of this kind: the key would go to the program in it."_s.arg(name)
        };
    modifiers.shift = true;
    return modifiers;
}

}
