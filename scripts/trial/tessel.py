# SPDX-FileCopyrightText: 2026 The Tessel developers
# SPDX-License-Identifier: MIT
"""The program under trial, with actions whose effect can be seen."""

import json
import re
import subprocess
import threading
import time
import urllib.parse
from dataclasses import dataclass

from .desktop import wait_for


@dataclass(frozen=True)
class Trigger:
    name: str
    chord: str  # in the words of xdotool
    code: int  # in those of the configuration
    modifiers: int


triggers = (
    Trigger("F2", "F2", 120, 0),
    Trigger("Super+T", "super+t", 17, 1048576),
    Trigger("Ctrl+Shift+Space", "ctrl+shift+space", 49, 393216),
)

button_keys = "12345qwert"
address = "tessel-trial://open?"


class Tessel:
    def __init__(self, desktop, program):
        self.desktop = desktop
        self.program = program
        self.process = None
        self.lines = []  # of its output: when each came, and the line
        self.opened_file = desktop.home / "opened"
        self.config = desktop.home / ".config/GlintClone/config.json"
        self._install_opener()
        # The default actions, the first of which (its key is 1) asks our opener instead of the web.
        self.start(triggers[0], configured=False)
        actions = json.loads(self.config.read_text())["customActions"]
        actions[0]["template"] = address + "{text}"
        self.actions = actions
        titles = [action["title"] for action in actions]
        self.uppercase_key = button_keys[titles.index("Uppercase")]
        self.large_type_key = button_keys[titles.index("Large Type")]

    def _install_opener(self):
        home = self.desktop.home
        opener = home / "opener"
        opener.write_text(f"#!/bin/sh\nprintf '%s\\n' \"$1\" >>'{self.opened_file}'\n")
        opener.chmod(0o700)
        entries = home / ".local/share/applications"
        entries.mkdir()
        scheme = "x-scheme-handler/" + address.partition(":")[0]
        (entries / "opener.desktop").write_text(
            f"[Desktop Entry]\nType=Application\nName=Opener\nExec={opener} %u\nMimeType={scheme};\n")
        (home / ".config/mimeapps.list").write_text(
            f"[Default Applications]\n{scheme}=opener.desktop\n")

    def start(self, trigger, configured=True, **settings):
        if self.process:
            self.process.terminate()
            self.process.wait()
        if configured:
            self.config.write_text(json.dumps({
                "customActions": self.actions, "excludedBundleIds": [],
                "triggerKeyCode": trigger.code, "triggerModifiers": trigger.modifiers, **settings}))
        self.trigger = trigger
        self.lines = []
        self.process = self.desktop.launch([self.program], stdout=subprocess.PIPE)
        threading.Thread(target=self._read, args=(self.process.stdout, self.lines)).start()
        wait_for(lambda: self._line("Tessel started", 0))

    @staticmethod
    def _read(output, lines):
        for line in output:
            lines.append((time.monotonic(), line.decode("utf-8", "replace").rstrip("\n")))

    def _line(self, pattern, since):
        return next((found for found in self.lines if found[0] >= since and pattern in found[1]),
                    None)

    def has_printed(self, pattern):
        return bool(self._line(pattern, 0))

    def summon(self, seconds=3.0):
        """Presses the trigger; milliseconds until the bar was shown, or None."""
        since = time.monotonic()
        self.desktop.keys(self.trigger.chord)
        shown = wait_for(lambda: self._line("FloatingPanel showing", since), seconds)
        return round((shown[0] - since) * 1000) if shown else None

    def captured(self):
        """The text that was captured last."""
        output = "\n".join(line for _, line in self.lines)
        found = re.findall(r"SELECTED TEXT: (.*?)\nBOUNDS:", output, re.DOTALL)
        return found[-1] if found else None

    def opened(self):
        """The texts that the first action was run with."""
        if not self.opened_file.exists():
            return []
        return [urllib.parse.unquote(line.removeprefix(address))
                for line in self.opened_file.read_text().splitlines()]

    def bar_is_shown(self):
        return bool(self.desktop.run("xdotool", "search", "--onlyvisible", "--class", "^Tessel$"))

    def dismiss(self):
        if self.bar_is_shown():
            self.desktop.keys("Escape")
            wait_for(lambda: not self.bar_is_shown())

    def rest(self):
        """After a capture the program is deaf for a second."""
        captures = [at for at, line in self.lines if "getSelectedTextInfo() called" in line]
        if captures:
            time.sleep(max(0.0, captures[-1] + 1.1 - time.monotonic()))
