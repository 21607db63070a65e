# SPDX-FileCopyrightText: 2026 The Tessel developers
# SPDX-License-Identifier: MIT
"""A desktop of its own with a user's hands and eyes: nothing of the real session is used or seen."""

import os
import re
import shutil
import signal
import subprocess
import tempfile
import time
from pathlib import Path


def wait_for(condition, seconds=5.0):
    """Repeats the condition until it is true or the time is over; its last value."""
    deadline = time.monotonic() + seconds
    while True:
        value = condition()
        if value or time.monotonic() > deadline:
            return value
        time.sleep(0.03)


class Desktop:
    """X server, window manager, compositor, session bus and a home, gone at the end of `with`."""

    def __init__(self, log):
        self.folder = Path(tempfile.mkdtemp(prefix="tessel-trial-"))
        self.home = self.folder / "home"
        self.log = log
        runtime = self.folder / "run"
        self.environment = {
            "PATH": "/usr/bin:/bin",
            "HOME": str(self.home),
            "LANG": "C.UTF-8",
            "SHELL": "/bin/sh",
            "XDG_CACHE_HOME": str(self.home / ".cache"),
            "XDG_CONFIG_HOME": str(self.home / ".config"),
            "XDG_DATA_HOME": str(self.home / ".local/share"),
            "XDG_RUNTIME_DIR": str(runtime),
            "DBUS_SESSION_BUS_ADDRESS": f"unix:path={runtime}/bus",
            "GSETTINGS_BACKEND": "memory",
            "NO_AT_BRIDGE": "1",
        }
        for name in ("XDG_CACHE_HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR"):
            Path(self.environment[name]).mkdir(parents=True)
        runtime.chmod(0o700)

    def __enter__(self):
        reader, writer = os.pipe()
        self.launch(["Xvfb", "-displayfd", str(writer), "-screen", "0", "1280x800x24",
                     "-nolisten", "tcp", "-noreset"], pass_fds=[writer])
        os.close(writer)
        with os.fdopen(reader) as answer:
            self.environment["DISPLAY"] = ":" + answer.readline().strip()
        bus = self.environment["DBUS_SESSION_BUS_ADDRESS"]
        self.launch(["dbus-daemon", "--session", "--nofork", "--nopidfile", "--address", bus])
        self.launch(["openbox", "--sm-disable"])
        self.launch(["picom", "--config", "/dev/null", "--backend", "xrender"])
        wait_for(lambda: self.property("_NET_SUPPORTING_WM_CHECK")
                 and "_NET_WM_CM_S0" not in self.run("xprop", "-root", "-notype", "WM_S0"))
        return self

    def __exit__(self, *_):
        while self.processes():
            for process in self.processes():
                os.kill(process, signal.SIGKILL)
            time.sleep(0.1)
        shutil.rmtree(self.folder, ignore_errors=True)

    def processes(self):
        """Those that were started here, by whomever: they have this home."""
        home = f"HOME={self.home}".encode()
        found = []
        for entry in Path("/proc").glob("[0-9]*"):
            try:
                if home in (entry / "environ").read_bytes().split(b"\0"):
                    found.append(int(entry.name))
            except OSError:
                pass  # it has ended meanwhile, or is another user's
        return found

    def launch(self, command, **options):
        options = {"stdout": self.log, "stderr": self.log} | options
        return subprocess.Popen(command, env=self.environment, cwd=self.home,
                                stdin=subprocess.DEVNULL, **options)

    def run(self, *command, text=None):
        """What the command writes; empty when it fails or its peer does not answer."""
        output = subprocess.DEVNULL if text is not None else subprocess.PIPE
        try:
            return subprocess.run(command, env=self.environment, input=text, stdout=output,
                                  stderr=subprocess.DEVNULL, encoding="utf-8", errors="replace",
                                  timeout=5).stdout or ""
        except subprocess.TimeoutExpired:
            return ""

    # Hands

    def keys(self, *chords):
        self.run("xdotool", "key", "--delay", "30", *chords)

    def type(self, text):
        self.run("xdotool", "type", "--delay", "40", text)

    def click(self, times=1):
        self.run("xdotool", "click", "--repeat", str(times), "--delay", "60", "1")

    def point_into(self, window, spot):
        place = dict(re.findall(r"(\w+)=(\d+)",
                                self.run("xdotool", "getwindowgeometry", "--shell", window)))
        if place:
            self.run("xdotool", "mousemove",
                     str(int(place["X"]) + int(int(place["WIDTH"]) * spot[0])),
                     str(int(place["Y"]) + int(int(place["HEIGHT"]) * spot[1])))

    def set_selection(self, selection, text):
        self.run("xclip", "-selection", selection, "-in", text=text)

    # Eyes

    def selection(self, selection):
        return self.run("xclip", "-selection", selection, "-out")

    def property(self, name, window=None):
        target = ["-id", window] if window else ["-root"]
        return self.run("xprop", *target, "-notype", name).partition("= ")[2].strip()

    def windows(self):
        """The applications' windows, as xdotool writes them."""
        listed = self.run("xprop", "-root", "-notype", "_NET_CLIENT_LIST")
        return [str(int(window, 16)) for window in re.findall(r"0x[0-9a-f]+", listed)]

    def title(self, window):
        return self.run("xdotool", "getwindowname", window).rstrip("\n")

    def active(self):
        return self.run("xdotool", "getactivewindow").strip()

    def focus(self):
        """The active window, and the window that has the keyboard."""
        return self.active(), self.run("xdotool", "getwindowfocus", "-f").strip()

    def picture(self, file):
        self.run("import", "-window", "root", str(file))
