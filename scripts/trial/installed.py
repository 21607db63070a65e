# SPDX-FileCopyrightText: 2026 The Tessel developers
# SPDX-License-Identifier: MIT
"""The installed program as somebody has it who is new to it: started from the menu with a fresh home,
all actions that are there at first, and the next version coming while it runs.

    python3 -m trial.installed LOG PICTURES UPGRADE

makes the file UPGRADE when the package of the next version is to be installed.
"""

import json
import os
import re
import sys
import time
import urllib.parse
from pathlib import Path

from .desktop import Desktop, wait_for
from .tessel import button_keys

program = "/usr/bin/tessel"
text = "dentist 2031-05-06 15:30"
encoded = urllib.parse.quote(text, safe=":")


class Newcomer:
    def __init__(self, desktop, pictures):
        self.desktop = desktop
        self.home = desktop.home
        self.pictures = pictures
        self.failures = []
        self.opened = self.home / "opened"  # what the web browser or calendar was given
        self.install("browser", "x-scheme-handler/https", 'printf %s "$1"')
        self.install("calendar", "text/calendar", 'cat "$1"')
        # In the order in which they are tried; the last changes the text.
        self.effects = {
            "Search": lambda: self.has_opened("https://www.google.com/search?q=" + encoded),
            "Translate": lambda: self.has_opened(
                f"https://translate.google.com/?sl=auto&tl=ko&text={encoded}&op=translate"),
            "ChatGPT": lambda: self.has_opened("https://chatgpt.com/?q=" + encoded),
            "Copy": lambda: self.has_copied(text),
            "Count": lambda: self.has_copied(str(len(text))),
            "Large Type": lambda: self.has_shown("Tessel Large Type"),
            "Add to Calendar": lambda: self.has_opened("DTSTART:20310506T153000"),
            "Add to Notes": self.has_noted,
            "Uppercase": lambda: self.has_copied(text.upper()) and self.has_typed(text.upper()),
        }

    def install(self, name, kind, command):
        """A program of the user's own that takes what is of that kind."""
        handler = self.home / name
        handler.write_text(f"#!/bin/sh\n{command} >'{self.opened}'\n")
        handler.chmod(0o700)
        entries = self.home / ".local/share/applications"
        entries.mkdir(exist_ok=True)
        (entries / f"{name}.desktop").write_text(
            f"[Desktop Entry]\nType=Application\nName={name}\nExec={handler} %u\nMimeType={kind};\n")
        with (self.home / ".config/mimeapps.list").open("a") as defaults:
            defaults.write(f"[Default Applications]\n{kind}={name}.desktop\n")

    # What actions do

    def has_opened(self, part):
        return wait_for(lambda: self.opened.exists() and part in self.opened.read_text())

    def has_copied(self, expected):
        return wait_for(lambda: self.desktop.selection("clipboard") == expected)

    def has_typed(self, expected):
        def is_there():
            self.desktop.keys("ctrl+a")
            return self.desktop.selection("primary") == expected
        return wait_for(is_there)

    def has_noted(self):
        return wait_for(lambda: any(text in note.read_text()
                                    for note in self.home.glob("Documents/Notes/*")))

    def has_shown(self, title, seconds=5, takes_keyboard=True):
        """Whether the window comes, and goes by Escape."""
        search = ["xdotool", "search", "--onlyvisible", "--name", f"^{title}$"]

        def is_shown():
            return self.desktop.run(*search)

        def goes():  # perhaps it gets the keyboard only now
            if not takes_keyboard:
                self.desktop.run(*search, "windowactivate", "--sync")
            self.desktop.keys("Escape")
            return wait_for(lambda: not is_shown(), 1)
        return wait_for(is_shown, seconds) and wait_for(goes)

    # What the user does

    def check(self, what, right):
        print(f"{'right' if right else 'WRONG'}: {what}", flush=True)
        if not right:
            self.failures.append(what)
            self.desktop.picture(self.pictures / f"{len(self.failures)}.png")
        return right

    def open_editor(self):
        notes = self.home / "notes.txt"
        notes.write_text(text)
        self.desktop.launch(["mousepad", str(notes)])
        return wait_for(lambda: "notes.txt" in self.desktop.title(self.desktop.active()), 30)

    def start(self):
        """From the menu: the process, or None."""
        self.desktop.launch(["gtk-launch", "com.tessel.app"])

        def running():
            return next((process for process in self.desktop.processes()
                         if self.executable(process) == program), None)
        return wait_for(running, 10)

    @staticmethod
    def executable(process):
        try:
            return os.readlink(f"/proc/{process}/exe")
        except OSError:
            return ""  # it has ended

    def summon(self):
        """Presses the trigger until the bar comes: the program may still be starting, and listens
        only a second after the last time."""
        def bar_is_shown():
            return self.desktop.run("xdotool", "search", "--onlyvisible", "--class", "^Tessel$")

        def comes():
            self.desktop.keys("ctrl+a")
            self.desktop.keys("F2")
            return wait_for(bar_is_shown, 1.2)
        return wait_for(comes, 15)

    def run(self, title):
        titles = [action["title"] for action in self.actions()]
        self.opened.unlink(missing_ok=True)
        for note in self.home.glob("Documents/Notes/*"):
            note.unlink()
        if not self.summon():
            return False
        if title == "Copy":  # what the capture itself has copied
            self.desktop.set_selection("clipboard", "something else")
        self.desktop.keys(button_keys[titles.index(title)])
        return self.effects[title]()

    def actions(self):
        return json.loads((self.home / ".config/GlintClone/config.json").read_text())["customActions"]

    def run_all(self, when):
        self.desktop.keys("ctrl+a")
        self.desktop.type(text)
        for title in self.effects:
            self.check(f"{title}, {when}", self.run(title))

    def use(self, upgrade):
        if not self.check("an editor comes up", self.open_editor()):
            return
        process = self.start()
        if not self.check("started from the menu", process):
            return
        # A window, as nothing here shows notifications.
        self.check("the first start says what to press", self.has_shown(
            "Tessel Notice", 30, takes_keyboard=False))
        self.check("there are no actions but those that are tried",
                   {action["title"] for action in self.actions()} == set(self.effects))
        upgrade.touch()
        self.check("the next version is installed", wait_for(
            lambda: self.executable(process) == f"{program} (deleted)", 120))
        self.run_all("while the next version was installed")
        self.desktop.run(program, "--quit")
        self.check("the next version ends the one before",
                   wait_for(lambda: not self.executable(process)))
        if self.check("started anew from the menu", self.start()):
            self.run_all("with the next version")


def main():
    log, pictures, upgrade = map(Path, sys.argv[1:])
    pictures.mkdir(parents=True, exist_ok=True)
    with log.open("w") as output, Desktop(output) as desktop:
        newcomer = Newcomer(desktop, pictures)
        newcomer.use(upgrade)
    print(f"{len(newcomer.failures)} failures")
    return 1 if newcomer.failures else 0


if __name__ == "__main__":
    sys.exit(main())
