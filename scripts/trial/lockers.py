# SPDX-FileCopyrightText: 2026 The Tessel developers
# SPDX-License-Identifier: MIT
"""Whether a screen locker gets the keyboard from us."""

import shlex
import time

from .tessel import triggers
from .trial import Trial

columns = ("locks above the bar", "locks above large type")


class LockerTrial(Trial):
    """The application is a locker; the bar and large type are above an editor."""

    def __init__(self, desktop, tessel, locker, editor, pictures=None):
        super().__init__(desktop, tessel, editor, pictures)
        self.locker = shlex.split(locker.command)

    def run(self):
        if not self.open():
            self.check(columns[0], False, "the editor does not come up")
            return
        # As root many have no password to ask for.
        if not self.lock_while(lambda: None):
            self.cells = dict.fromkeys(columns, "cannot lock here")
            return
        self.lock(columns[0], self.show_bar)
        self.lock(columns[1], self.show_large_type)

    def show_bar(self):
        self.tessel.start(triggers[0])
        self.select()
        self.tessel.summon()

    def show_large_type(self):
        self.show_bar()
        self.desktop.keys(self.tessel.large_type_key)
        time.sleep(1)
        self.desktop.run("xset", "s", "activate")

    def lock_while(self, show):
        """Starts the locker and types once it had time to take the keyboard."""
        show()
        try:
            locker = self.desktop.launch(self.locker)
        except OSError:
            return False
        time.sleep(4)
        is_locked = locker.poll() is None
        self.desktop.keys("1", "x")
        time.sleep(1)
        locker.terminate()
        locker.wait()
        self.tessel.dismiss()
        self.desktop.run("xset", "s", "reset")
        return is_locked

    def lock(self, column, show):
        self.check(column, self.lock_while(show), "the locker gave up")
        self.check(column, not self.tessel.opened(), "an action was run by the key 1")
        content = self.content()
        self.check(column, content == self.text, f"the text became {content!r}")
