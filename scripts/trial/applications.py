# SPDX-FileCopyrightText: 2026 The Tessel developers
# SPDX-License-Identifier: MIT
"""The applications that are tried, a row each."""

from dataclasses import dataclass
from enum import Enum
from typing import Callable, Optional

from . import documents


class Kind(Enum):
    """The headings of the tables."""

    text = "Editors, browsers and viewers"
    files = "File managers"
    terminal = "Terminals"
    locker = "Screen lockers"


class Sign(Enum):
    """How F2 shows that it has reached the application."""

    title = "the window's title"
    rename = "a name typed after it renames the selected file"
    formula = "what is typed after it continues the formula in the cell"
    input = "the program in the terminal reads it"


@dataclass(frozen=True)
class Application:
    """{document} and {folder} stand in commands.

    What is done is chords in the words of xdotool, "click", "click 3" for three clicks, and words
    that are typed: "type WORDS".
    """

    name: str
    packages: tuple  # the first one's version is shown
    command: str
    kind: Kind = Kind.text
    document: Callable = documents.plain
    title: str = ""  # part of the title that the window has once it is there
    spot: tuple = (0.5, 0.5)  # where the pointer is, in parts of the window
    prepare: tuple = ()  # once
    select: tuple = ("ctrl+a",)
    copy: tuple = ("ctrl+c",)
    deselect: tuple = ("Right",)
    # Without a visible selection it copies the line, Emacs' region, an empty cell, nothing.
    copies_unselected: bool = False
    uppercase: bool = True  # Ctrl+V replaces what is selected, and without a question
    line_end: bool = False  # what is selected may end with the line
    sign: Optional[Sign] = None
    tolerates: str = ""  # what the program in a terminal reads that is not known to be one


def terminal(name, command, *packages, spot=(0.1, 0.5), sign=Sign.input, **options):
    return Application(name, packages or (name,), command, Kind.terminal,
                       documents.terminal_program, spot=spot, select=("click 3",),
                       uppercase=False, line_end=True, sign=sign, **options)


def file_manager(name):
    return Application(name, (name,), name + " {document}", Kind.files, documents.file,
                       title="shown", select=("Escape", "ctrl+l"),
                       deselect=("Escape", "click", "ctrl+a"), uppercase=False, sign=Sign.rename)


def locker(name, command, package):
    return Application(name, (package,), command, Kind.locker)


applications = (
    Application("mousepad", ("mousepad",), "mousepad {document}"),
    Application("featherpad", ("featherpad",), "featherpad --standalone {document}"),
    Application("geany", ("geany",), "geany --new-instance {document}"),
    Application("gedit", ("gedit",), "gedit --standalone {document}"),
    Application("gnome-text-editor", ("gnome-text-editor",),
                "gnome-text-editor --standalone {document}"),
    Application("kwrite", ("kwrite",), "kwrite {document}", copies_unselected=True),
    Application("swing", ("default-jdk-headless", "default-jre"),
                "java {document} {folder}/text.txt", document=documents.swing, sign=Sign.title),
    Application("chromium", ("chromium",),
                "chromium --no-sandbox --no-first-run --password-store=basic {document}",
                document=documents.page, title="page", sign=Sign.title),
    Application("firefox", ("firefox-esr",), "firefox-esr --new-instance {document}",
                document=documents.page, title="page", sign=Sign.title),
    Application("evince", ("evince",), "evince {document}", document=documents.pdf,
                deselect=("click",), uppercase=False, line_end=True),
    Application("okular", ("okular",), "okular {document}", document=documents.pdf,
                prepare=("ctrl+4",), deselect=("click",), uppercase=False, line_end=True),
    Application("libreoffice-writer", ("libreoffice-writer", "libreoffice-gtk3"),
                "soffice --nologo --norestore --writer {document}", title="text"),
    Application("libreoffice-calc", ("libreoffice-calc", "libreoffice-gtk3"),
                "soffice --nologo --norestore --calc {document}", title="text",
                document=documents.spreadsheet, select=("ctrl+Home",), copies_unselected=True,
                uppercase=False, line_end=True, sign=Sign.formula),
    Application("emacs", ("emacs-gtk",), "emacs -Q {document}", title="text",
                select=("ctrl+g", "ctrl+x", "h"), copy=("alt+w",), deselect=("ctrl+g",),
                copies_unselected=True, uppercase=False),
    Application("gvim", ("vim-gtk3",), "gvim -f {document}",
                select=("Escape", *"gg0v", "dollar", "h"), copy=("quotedbl", "plus", "y"),
                deselect=("Escape",), uppercase=False),
    Application("tk", ("tk",), "wish {document}", document=documents.tk, sign=Sign.title,
                select=("ctrl+slash",), uppercase=False, line_end=True),
    Application("idle", ("idle",), "idle {document}", line_end=True, copies_unselected=True),

    file_manager("thunar"),
    file_manager("pcmanfm"),
    file_manager("dolphin"),

    terminal("konsole", "konsole --separate -e sh {document}"),
    terminal("dolphin-panel", "dolphin {folder}", "dolphin", "konsole-kpart",
             spot=(0.4, 0.85), sign=None, tolerates="\x1b[2;5~", prepare=("F4", "type sh program.sh", "Return")),
    terminal("gnome-terminal", "gnome-terminal --wait -- sh {document}"),
    terminal("xfce4-terminal", "xfce4-terminal --disable-server -x sh {document}"),
    terminal("lxterminal", "lxterminal --no-remote -e 'sh {document}'"),
    terminal("terminator", "terminator --no-dbus -x sh {document}"),
    terminal("mate-terminal", "mate-terminal --disable-factory -x sh {document}"),
    terminal("qterminal", "qterminal -e sh {document}"),
    terminal("sakura", "sakura -e sh {document}"),
    terminal("alacritty", "alacritty -e sh {document}"),
    terminal("kitty", "kitty --config NONE sh {document}"),
    terminal("pterm", "pterm -e sh {document}"),
    terminal("urxvt", "urxvt -e sh {document}", "rxvt-unicode"),
    terminal("xterm", "xterm -e sh {document}"),
    terminal("st", "stterm -e sh {document}", "stterm"),

    locker("i3lock", "i3lock --nofork", "i3lock"),
    locker("xtrlock", "xtrlock", "xtrlock"),
    locker("slock", "slock", "suckless-tools"),
)
