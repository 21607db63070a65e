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

Tessel was tried with each of these, as you would use it, on an X11 desktop with openbox and picom: open
a text, select it, press the trigger, press the key of an action. A dash is where there is nothing to try;
[the columns](#columns) and [what is particular](#particulars) are explained below the tables.
"""

notes = """## Columns

- **text right**: the bar appears, and its first action gets exactly what is selected
- **selection kept**: the text is still selected, as copying it by the application's own keys shows
- **focus kept**: the window and its keyboard focus stay as they are while the bar is shown
- **nothing leaked**: the application gets neither the trigger nor the action's key
- **alive**: its window is still there, and no program in a terminal was interrupted
- **without selection**: no bar, and clipboard and text are as before; F2 does what the application has it for
  (looked at in Calc, which edits the cell, file managers, which rename, terminals, browsers, Swing and Tk)
- **other triggers**: the same holds for Super+T and Ctrl+Shift+Space
- **Uppercase**: the action replaces the selection by capital letters
- **ms**: milliseconds from the trigger's key to the bar; Tessel looks for the text after the first 100
- **locks above the bar, large type**: the locker gets the keyboard while these are shown

## Particulars

- "swing" and "tk" are a text field of these toolkits, "dolphin-panel" is Dolphin's terminal panel.
- KWrite copies the line that the cursor is in, and Emacs the text between mark and point, when nothing looks
  selected: the bar appears with that.
- IDLE and Calc copy nothing then, which empties the clipboard, as their own shortcuts do.
- File managers: a selected file is no text, so F2 renames it; text in the location bar is.
- Uppercase pastes with Ctrl+V, which is another command in Emacs and gvim; Tk pastes beside the selection,
  and Calc asks before it overwrites a cell.
- Dolphin's terminal panel is not known as a terminal: the bar takes longer, and the program in it reads
  the copy shortcut, Ctrl+Insert.
- A locker that "cannot lock here" did not lock without Tessel either, so nothing is known of it: it was
  tried by root, who has no password.
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
    print(notes, end="")


def print_plain(rows):
    for heading, lines in tables(rows):
        print(heading)
        widths = [max(len(cell) for cell in column) for column in zip(*lines)]
        for line in lines:
            print("  ".join(cell.ljust(width) for cell, width in zip(line, widths)).rstrip())
        print()
