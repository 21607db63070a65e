# SPDX-FileCopyrightText: 2026 The Tessel developers
# SPDX-License-Identifier: MIT
"""What a user does in one application, and what comes of it."""

import shlex
import time

from .applications import Kind, Sign
from .desktop import wait_for
from .tessel import triggers

sample = "mosaïque of tesserae, 3 < 4"
sentinel = "what was copied before"
stale = "selected elsewhere"
f2_sequences = {"\x1bOQ", "\x1b[12~", "\x1b[[B"}


class Trial:
    """`cells` are the answers by column, True where all is right; `notes` say what is not."""

    def __init__(self, desktop, tessel, application, pictures=None):
        self.desktop = desktop
        self.tessel = tessel
        self.application = application
        self.pictures = pictures
        self.is_terminal = application.kind == Kind.terminal
        self.text = sample
        self.cells = {}
        self.notes = []

    def check(self, column, right, note):
        self.cells[column] = bool(right) and self.cells.get(column, True)
        if not right:
            self.notes.append(f"{column}: {note}")
            if self.pictures:
                name = f"{self.application.name}-{len(self.notes)}.png"
                self.desktop.picture(self.pictures / name)

    def run(self):
        if not self.open():
            self.check("text right", False, "the application does not come up with the text")
            return
        self.tessel.start(triggers[0])
        self.without_selection()
        self.pick()
        if self.application.uppercase:
            self.uppercase()
        for trigger in triggers[1:]:
            if self.cells.get("other triggers", True):  # else the text is not what it was
                self.other_trigger(trigger)
        self.check("alive", self.window in self.desktop.windows(), "its window is gone")
        if self.is_terminal:
            interrupts = self.file("interrupts")
            self.check("alive", not interrupts, f"interrupted {len(interrupts.split())} times")

    # The application

    def open(self):
        folder = self.folder = self.desktop.home / "documents"
        folder.mkdir()
        document = self.application.document(folder, self.text)
        command = self.application.command.format(document=document, folder=folder)
        before = set(self.desktop.windows())
        self.desktop.launch(shlex.split(command))

        def arrived():
            window = self.desktop.active()
            is_new = window in self.desktop.windows() and window not in before
            return window if is_new and self.application.title in self.desktop.title(window) else None

        self.window = wait_for(arrived, 60)
        if not self.window:
            return False
        for step in self.application.prepare:
            time.sleep(1)
            self.do(step)
        if self.is_terminal:
            return wait_for((folder / "ready").exists, 20)
        if self.application.kind == Kind.files:
            self.text = str(document)  # in the location bar
        return wait_for(lambda: self.content() == self.text, 30)

    def file(self, name):
        file = self.folder / name
        return file.read_text() if file.exists() else ""

    def do(self, *steps):
        for step in steps:
            verb, _, rest = step.partition(" ")
            if verb == "click":
                time.sleep(0.5)  # not a double click with the last
                self.desktop.click(int(rest or 1))
            elif verb == "type":
                self.desktop.type(rest)
            else:
                self.desktop.keys(step)

    def select(self):
        self.desktop.point_into(self.window, self.application.spot)
        self.do(*self.application.select)
        time.sleep(0.4)

    def trimmed(self, text):
        if self.application.kind == Kind.files:
            return text.removesuffix("/")
        return text.removesuffix("\n") if self.application.line_end else text

    def copied(self):
        """What is selected, as copying it by the application's own keys shows."""
        if self.is_terminal:  # their keys differ, what is selected is PRIMARY in all of them
            return self.trimmed(self.desktop.selection("primary"))
        self.desktop.set_selection("clipboard", sentinel)
        self.desktop.keys(*self.application.copy)
        wait_for(lambda: self.desktop.selection("clipboard") not in (sentinel, ""), 2)
        return self.trimmed(self.desktop.selection("clipboard"))

    def content(self):
        self.select()
        return self.copied()

    def deselect(self):
        self.do(*self.application.deselect)
        time.sleep(0.3)

    # What a user does

    def without_selection(self):
        column = "without selection"
        if not self.is_terminal:
            self.deselect()
        self.desktop.set_selection("primary", stale)
        self.desktop.set_selection("clipboard", sentinel)
        before = self.desktop.title(self.window)
        shown = self.tessel.summon(1.5)
        copies = self.application.copies_unselected
        self.check(column, copies or shown is None, f"a bar for {self.tessel.captured()!r}")
        self.tessel.dismiss()
        # In file managers a file is selected, and copied.
        if not copies and self.application.kind != Kind.files:
            clipboard = self.desktop.selection("clipboard")
            self.check(column, clipboard == sentinel, f"the clipboard became {clipboard!r}")
        if self.application.sign and not shown:
            self.check(column, self.f2_arrived(before), "F2 did not reach the application")
        self.tessel.rest()
        if self.is_terminal:
            self.check(column, not self.file("interrupts"), "the program was interrupted")
            return
        self.desktop.keys("Escape")
        content = self.content()
        self.check(column, content == self.text, f"the text became {content!r}")

    def seen_keys(self):
        """What the application shows of the keys that it got."""
        if self.application.sign == Sign.title:
            return self.desktop.title(self.window)
        keys = self.file("keys")
        return keys.replace(self.application.tolerates, "") if self.application.tolerates else keys

    def f2_arrived(self, title_before):
        if self.application.sign == Sign.title:
            return wait_for(lambda: self.desktop.title(self.window) != title_before, 2)
        if self.application.sign == Sign.input:
            return wait_for(lambda: self.file("keys"), 2) in f2_sequences
        if self.application.sign == Sign.rename:
            self.desktop.type("renamed")
            self.desktop.keys("Return")
            return wait_for(lambda: any(self.folder.glob("shown/renamed*")), 2)
        self.desktop.type('&"continued"')
        self.desktop.keys("Return", "Up")
        return self.copied() == "continued"

    def summon(self, column):
        """Selects and presses the trigger; what holds for every trigger. The milliseconds."""
        self.select()
        self.desktop.set_selection("clipboard", sentinel)
        focus = self.desktop.focus()
        self.keys_before = self.seen_keys()
        milliseconds = self.tessel.summon()
        captured = self.tessel.captured()
        self.check(column, milliseconds and captured is not None
                   and self.trimmed(captured) == self.text,
                   f"{self.tessel.trigger.name} gives {captured!r}")
        now = self.desktop.focus()
        self.check("focus kept", now == focus, f"{focus} became {now}")
        return milliseconds

    def leaves_intact(self, column):
        selected = self.copied()
        self.check("selection kept" if column == "text right" else column, selected == self.text,
                   f"{self.tessel.trigger.name}: selected is {selected!r}")
        content = self.content()
        self.check("nothing leaked" if column == "text right" else column, content == self.text,
                   f"{self.tessel.trigger.name}: the text became {content!r}")

    def pick(self):
        column = "text right"
        milliseconds = self.summon(column)
        if milliseconds:
            self.cells["ms"] = milliseconds
            self.desktop.keys("1")
            wait_for(self.tessel.opened)
            opened = [self.trimmed(text) for text in self.tessel.opened()]
            self.check(column, opened == [self.text], f"picked with {opened!r}")
        time.sleep(0.3)
        keys = self.seen_keys()
        self.check("nothing leaked", keys == self.keys_before, f"{self.keys_before!r} became {keys!r}")
        self.leaves_intact(column)

    def other_trigger(self, trigger):
        column = "other triggers"
        self.tessel.start(trigger)
        self.summon(column)
        self.tessel.dismiss()
        self.leaves_intact(column)

    def uppercase(self):
        self.tessel.rest()
        self.select()
        expected = self.text.upper()
        if self.tessel.summon():
            self.desktop.keys(self.tessel.uppercase_key)
            wait_for(lambda: self.trimmed(self.desktop.selection("clipboard")) == expected)
            time.sleep(1.5)  # until it is pasted, too: nothing else may be on the clipboard
        content = self.content()
        self.check("Uppercase", content == expected, f"the text became {content!r}")
        self.text = content
