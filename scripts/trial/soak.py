# SPDX-FileCopyrightText: 2026 The Tessel developers
# SPDX-License-Identifier: MIT
"""A long use of the program in one editor, and what it costs the machine."""

import json
import re
import sys
import time
from dataclasses import astuple, dataclass, fields
from pathlib import Path

from .applications import applications
from .desktop import wait_for
from .tessel import Tessel, address, button_keys, triggers
from .trial import Trial

max_turn = 50  # triggers between two visits to the windows
warm_up = 3  # turns: by then every language, theme and window has been seen once
languages = ("en", "ko", "zh")
themes = ("system", "light", "dark")
tables = Path(__file__).parents[2] / "resources/Tessel_Tessel.bundle/Localizations"


@dataclass
class Footprint:
    memory: int  # KiB, dirty and the process's own
    descriptors: int
    threads: int
    children: int

    @classmethod
    def of(cls, pid):
        process = Path(f"/proc/{pid}")
        memory = re.search(r"Private_Dirty: +(\d+)", (process / "smaps_rollup").read_text())
        tasks = list((process / "task").iterdir())
        children = " ".join((task / "children").read_text() for task in tasks)
        return cls(int(memory[1]), len(list((process / "fd").iterdir())), len(tasks),
                   len(children.split()))

    def growth_since(self, before):
        return Footprint(*(now - then for now, then in zip(astuple(self), astuple(before))))

    def exceeds(self, other):
        return any(value > limit for value, limit in zip(astuple(self), astuple(other)))

    def line(self, sign=""):
        return "  ".join(f"{getattr(self, field.name):{sign}{len(field.name)}}"
                         for field in fields(self))


max_growth = Footprint(memory=2048, descriptors=0, threads=0, children=0)


class Soak:
    def __init__(self, desktop, program, pictures):
        self.desktop = desktop
        self.pictures = pictures
        self.done = 0
        self.failures = []
        self.growths = []  # of the starts that were long enough
        desktop.launch(["trayer", "--edge", "bottom"])
        self.tessel = Tessel(desktop, program)
        self.trial = Trial(desktop, self.tessel, applications[0])
        # Each is an action with the check of what it has done; its key is its place.
        done = self.tessel.opened_file
        self.steps = (
            ("search", "url", address + "{text}", self.is_handed_on),
            ("copy", "builtin", "COPY", lambda text: self.has_logged("Copied text to clipboard")),
            ("translate", "shellScript", f"printf '%s\\n' \"$TESSEL_TEXT\" >>'{done}'",
             self.is_handed_on),
            ("count", "builtin", "COUNT", lambda text: self.has_copied(str(len(text)))),
            ("largetype", "builtin", "LARGE_TYPE", lambda text: self.closes("Tessel Large Type")),
            ("script", "appleScript",
             f'do shell script "printf \'%s\\\\n\' " & quoted form of "{{text}}" & " >>\'{done}\'"',
             self.is_handed_on),
            ("shortcut", "shortcut", "Hand on", self.is_handed_on),
            ("fails", "shellScript", "echo no >&2; exit 3", lambda text: self.closes("Command Failed")),
        )
        shortcut = desktop.home / ".local/share/tessel/shortcuts/Hand on"
        shortcut.parent.mkdir(parents=True, exist_ok=True)
        shortcut.write_text(f"#!/bin/sh\n{{ cat; echo; }} >>'{done}'\n")
        shortcut.chmod(0o700)
        self.tessel.actions = [
            {"id": name, "title": name, "iconName": "phosphor_star", "type": kind,
             "template": template} for name, kind, template, _ in self.steps]

    # What actions do

    def is_handed_on(self, text):
        return wait_for(lambda: text in self.tessel.opened())

    def has_logged(self, line):
        return wait_for(lambda: self.tessel.has_printed(line))

    def has_copied(self, text):
        return wait_for(lambda: self.desktop.selection("clipboard") == text)

    def window(self, title):
        """By its English title, whatever language it has."""
        language = self.settings().get("language", languages[0])
        title = json.loads((tables / f"{language}.json").read_text()).get(title, title)
        return self.desktop.run("xdotool", "search", "--onlyvisible", "--name", f"^{title}$").strip()

    def closes(self, title, *keys):
        """Whether the window comes, and goes by its key."""
        if not wait_for(lambda: self.window(title)):
            return False
        time.sleep(0.3)  # until it has the keyboard
        self.desktop.keys(*(keys or ("Escape",)))
        return wait_for(lambda: not self.window(title))

    # What the user does

    def run(self, count):
        if not self.trial.open():
            self.fail("the editor does not come up")
            return
        print("triggers  " + "  ".join(field.name for field in fields(Footprint)))
        starts = (0, count // 8, count // 4, count)
        for begin, end in zip(starts, starts[1:]):
            self.start()
            self.use(range(begin, end), min(max_turn, max(1, count // 16)))

    def use(self, numbers, turn):
        footprints = []
        for number in numbers:
            self.trigger(number)
            if (number + 1 - numbers.start) % turn == 0:
                self.visit_windows(len(footprints))
                footprints.append(self.rest_and_measure())
        if len(footprints) > warm_up:
            self.growths.append(footprints[-1].growth_since(footprints[warm_up - 1]))

    def start(self):
        self.tessel.start(triggers[0], **(self.settings() if self.done else {}))
        if not wait_for(self.tessel.bar_is_shown):  # the item in the tray is such a window, too
            self.fail("no item in the tray")

    def trigger(self, number):
        text = f"tile {number}"
        name, _, _, has_effect = self.steps[number % len(self.steps)]
        self.tessel.opened_file.unlink(missing_ok=True)
        self.desktop.keys("ctrl+a")
        self.desktop.type(text)
        self.desktop.keys("ctrl+a")
        time.sleep(0.1)
        self.tessel.rest()
        self.tessel.lines.clear()
        self.done += 1
        if not self.tessel.summon():
            self.fail(f"trigger {number} was missed")
            return
        if self.tessel.captured() != text:
            self.fail(f"trigger {number} captured {self.tessel.captured()!r}")
        self.desktop.keys(button_keys[number % len(self.steps)])
        if not has_effect(text):
            self.fail(f"trigger {number}: {name} had no effect")
            self.desktop.keys("Escape")

    def visit_windows(self, number):
        """From the bar to the settings, where another language and theme are chosen, and from the
        tray to the window about the program."""
        language = languages[number % len(languages)]
        theme = themes[(number + number // len(languages)) % len(themes)]
        self.tessel.rest()
        if not self.tessel.summon():
            self.fail("the trigger before the settings was missed")
            return
        self.desktop.keys("ctrl+comma")
        wait_for(lambda: self.window("Tessel Preferences"))
        time.sleep(0.5)
        self.desktop.keys("Tab", "Tab", "Home", *["Down"] * languages.index(language),
                          "Tab", "Home", *["Down"] * themes.index(theme))
        if not wait_for(lambda: self.settings() == {"language": language, "themeMode": theme}):
            self.fail(f"the settings became {self.settings()}")
        self.desktop.keys("ctrl+Tab")
        time.sleep(0.3)
        if not self.closes("Tessel Preferences", "ctrl+w"):
            self.fail("the settings do not close")
        self.desktop.point_into(self.window("panel"), (0.01, 0.5))
        self.desktop.run("xdotool", "click", "3")
        time.sleep(0.5)
        self.desktop.keys("Down", "Return")
        if not self.closes("About Tessel"):
            self.fail("no window about the program")
        self.desktop.run("xdotool", "windowactivate", "--sync", self.trial.window)

    def settings(self):
        try:
            saved = json.loads(self.tessel.config.read_text())
        except ValueError:
            return {}  # it is being written
        return {name: saved.get(name, initial) for name, initial
                in (("language", languages[0]), ("themeMode", themes[0]))}

    # What comes of it

    def fail(self, note):
        self.failures.append(note)
        print(note, file=sys.stderr, flush=True)
        if self.pictures:
            self.desktop.picture(self.pictures / f"{len(self.failures)}.png")

    def rest_and_measure(self):
        time.sleep(2)
        footprint = Footprint.of(self.tessel.process.pid)
        print(f"{self.done:8}  " + footprint.line(), flush=True)
        return footprint

    def report(self):
        """Prints it; the status to exit with."""
        print("\nGrowth of each start since its first turns:")
        for growth in self.growths:
            print(" " * 10 + growth.line("+"))
        grows = any(growth.exceeds(max_growth) for growth in self.growths)
        print(f"{self.done} triggers, {len(self.failures)} failures, "
              + ("grows too much" if grows else "does not grow"))
        return 1 if grows or self.failures or not self.growths else 0
