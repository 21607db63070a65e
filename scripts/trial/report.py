# SPDX-FileCopyrightText: 2026 The Tessel developers
# SPDX-License-Identifier: MIT
"""The answers as tables."""

from dataclasses import dataclass

from . import lockers
from .applications import Application, Kind

text_columns = ("text right", "selection kept", "focus kept", "nothing leaked", "alive",
                "without selection", "other triggers", "Uppercase", "ms")
columns = {kind: text_columns for kind in Kind} | {
    Kind.terminal: tuple(column for column in text_columns if column != "Uppercase"),
    Kind.files: tuple(column for column in text_columns if column != "Uppercase"),
    Kind.locker: lockers.columns,
}

introduction = """# Applications

What `scripts/try-applications --markdown` found: on an X11 desktop with openbox and picom, each
application is opened with a text, the text is selected and the trigger pressed, as a user would.

- **text right**: the bar appears, and the key 1 runs the first action on exactly what was selected
- **selection kept**: copying by the application's own keys after that still gives the text
- **focus kept**: the active window and the keyboard's focus are the same while the bar is shown
- **nothing leaked**: neither the trigger nor the key 1 changed the text or reached the application
- **alive**: its window is still there, and a program in a terminal was never interrupted
- **without selection**: no bar, the clipboard as before, the text unchanged; and F2 does what it does
  there where that can be seen: in file managers (Rename), Calc (edit the cell), terminals (the program reads
  it), the browsers' page, Swing and Tk
- **other triggers**: the same text with Super+T and Ctrl+Shift+Space, which replace nothing
- **Uppercase**: the default action replaces the selection by capital letters
- **ms**: from the trigger to the bar, with the time xdotool takes to start

KWrite copies the line, and Emacs the text between mark and point, when nothing looks selected: there
the bar appears. IDLE and Calc copy nothing then, which empties the clipboard, as their own keys do.
A dash is where there is nothing to try: viewers and terminals have nothing to replace, Ctrl+V is another
command in Emacs and gvim, Tk pastes beside the selection, and Calc asks before it overwrites a cell.
Dolphin's terminal panel is not known as a terminal; the program in it reads the copy shortcut, Ctrl+Insert.
A locker that does not lock without Tessel either (as root, who has no password) "cannot lock here".
"""


@dataclass
class Row:
    application: Application
    version: str
    cells: dict
    notes: list

    def is_right(self):
        return not self.notes

    def summary(self):
        return f"{self.application.name}: " + ("right" if self.is_right() else "; ".join(self.notes))

    def texts(self):
        def text(value):
            return {True: "yes", False: "NO", None: "–"}.get(value) or str(value)

        return [self.application.name, self.version,
                *(text(self.cells.get(column)) for column in columns[self.application.kind])]


def tables(rows):
    for kind in Kind:
        of_kind = [row.texts() for row in rows if row.application.kind == kind]
        if of_kind:
            yield kind.value, [["application", "version", *columns[kind]], *of_kind]


def print_markdown(rows):
    print(introduction)
    for heading, lines in tables(rows):
        print(f"## {heading}\n")
        lines.insert(1, ["---"] * len(lines[0]))
        for line in lines:
            print(f"| {' | '.join(line)} |")
        print()


def print_plain(rows):
    for heading, lines in tables(rows):
        print(heading)
        widths = [max(len(cell) for cell in column) for column in zip(*lines)]
        for line in lines:
            print("  ".join(cell.ljust(width) for cell, width in zip(line, widths)).rstrip())
        print()
