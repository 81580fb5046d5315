#!/usr/bin/env python3
"""A desktop starts the program over the session bus, and calls its window.

usage: activation.py PROGRAM
"""

import os
import pathlib
import re
import signal
import subprocess
import time

from window import EXECUTABLE, run, texts_in, wait_for
from x11 import xdotool

NAME = "org.velmorath.velmorath"


def windows():
    return subprocess.run(["xdotool", "search", "--onlyvisible", "--name", "Velmorath"], capture_output=True,
                          text=True).stdout.split()


class Desktop:
    """Asks the program over the bus, which knows which one to start for its name."""

    def __init__(self, home):
        from gi.repository import Gio
        self.bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        service = pathlib.Path(EXECUTABLE).with_name(f"{NAME}.service").read_text()
        pathlib.Path(home, f"dbus-1/services/{NAME}.service").write_text(
            re.sub("^Exec=.*$", f"Exec={EXECUTABLE}", service, flags=re.MULTILINE))
        self.call("org.freedesktop.DBus", "/", "org.freedesktop.DBus", "ReloadConfig", None)

    def call(self, name, path, interface, method, arguments):
        from gi.repository import Gio
        answer = self.bus.call_sync(name, path, interface, method, arguments, None, Gio.DBusCallFlags.NONE, 10000)
        return answer.unpack()

    def ask(self, method, arguments):
        self.call(NAME, "/org/velmorath/velmorath", "org.freedesktop.Application", method, arguments)


def use(home):
    from gi.repository import GLib
    desktop = Desktop(home)
    nothing = GLib.Variant("(a{sv})", ({},))
    desktop.ask("Activate", nothing)
    wait_for(windows, "the window", 20)
    window, = windows()
    process, = desktop.call("org.freedesktop.DBus", "/", "org.freedesktop.DBus", "GetConnectionUnixProcessID",
                            GLib.Variant("(s)", (NAME,)))
    try:
        xdotool("windowminimize", window)
        wait_for(lambda: not windows(), "the window is away")
        for method, arguments in (("Open", nothing), ("Activate", None)):
            try:
                desktop.ask(method, arguments)
                raise AssertionError(f"{method} was answered")
            except GLib.Error as error:
                assert "DBus.Error.Unknown" in error.message, error.message
        assert not windows()
        token = GLib.Variant("s", "no permission")
        desktop.ask("Activate", GLib.Variant("(a{sv})", ({"activation-token": token, "other": token},)))
        wait_for(lambda: windows() == [window] and xdotool("getactivewindow").strip() == window,
                 "the window is in front")
        subprocess.run([EXECUTABLE], check=True, timeout=10)
        assert windows() == [window], "a second start makes no second window"
        time.sleep(1.2)
        xdotool("key", "Escape")  # the offer of the tutorial
        for name, text in (("a b.md", "By an address"), ("c.txt", "By another")):
            pathlib.Path(home, name).write_text(text)
        addresses = [pathlib.Path(home, name).as_uri() for name in ("a b.md", "c.txt")]
        desktop.ask("Open", GLib.Variant("(asa{sv})", (addresses, {"activation-token": token})))
        known = ["By another", "By an address", "Hello!"]
        wait_for(lambda: texts_in(home) == known, "files that a desktop hands over")
        pathlib.Path(home, "folder").mkdir()
        # More than is read at once.
        many = [f"{number} and a long name with a\nline break.md" for number in range(200)]
        for name in many:
            pathlib.Path(home, name).write_text(f"In {name[:3]}")
        subprocess.run([EXECUTABLE, "folder", *many], check=True, timeout=10, cwd=home)
        time.sleep(1)
        assert texts_in(home) == known, "that a folder is none is told first"
        xdotool("key", "Escape")
        wait_for(lambda: len(texts_in(home)) == len(many) + len(known), "those of a second start", 20)
    finally:
        os.kill(process, signal.SIGTERM)


run(use)
