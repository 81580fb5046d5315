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

from window import notes_of, run_on_own_bus, wait_for
from x11 import xdotool

NAME = "org.velmorath.velmorath"


def windows():
    return subprocess.run(["xdotool", "search", "--onlyvisible", "--name", "Velmorath"], capture_output=True,
                          text=True).stdout.split()


def is_in_front(window):
    found = subprocess.run(["xdotool", "getactivewindow"], capture_output=True, text=True)
    return found.stdout.strip() == window


def prepare(executable, home):
    """The bus knows which program to start for its name."""
    service = (pathlib.Path(executable).parent / f"{NAME}.service").read_text()
    services = pathlib.Path(home, ".local/share/dbus-1/services")
    services.mkdir(parents=True)
    (services / f"{NAME}.service").write_text(re.sub("^Exec=.*$", f"Exec={executable}", service, flags=re.MULTILINE))


def use(executable, home):
    from gi.repository import Gio, GLib
    bus = Gio.bus_get_sync(Gio.BusType.SESSION)
    home = pathlib.Path(home)

    def call(name, path, interface, method, arguments):
        return bus.call_sync(name, path, interface, method, arguments, None, Gio.DBusCallFlags.NONE, 10000).unpack()

    def ask(method, arguments):
        return call(NAME, "/org/velmorath/velmorath", "org.freedesktop.Application", method, arguments)

    def texts():
        return [text for text, _, _ in notes_of(home / ".local/share/velmorath/Documents/noteSalvate.archive")]

    nothing = GLib.Variant("(a{sv})", ({},))
    ask("Activate", nothing)
    wait_for(windows, "the window")
    window, = windows()
    process, = call("org.freedesktop.DBus", "/", "org.freedesktop.DBus", "GetConnectionUnixProcessID",
                    GLib.Variant("(s)", (NAME,)))
    try:
        xdotool("windowminimize", window)
        wait_for(lambda: not windows(), "the window is away")
        for method, arguments in (("Open", nothing), ("Activate", None)):
            try:
                ask(method, arguments)
                raise AssertionError(f"{method} was answered")
            except GLib.Error as error:
                assert "DBus.Error.Unknown" in error.message, error.message
        assert not windows()
        token = GLib.Variant("s", "no permission")
        ask("Activate", GLib.Variant("(a{sv})", ({"activation-token": token, "other": token},)))
        wait_for(lambda: windows() == [window] and is_in_front(window), "the window is in front")
        subprocess.run([executable], check=True, timeout=10)
        assert windows() == [window], "a second start makes no second window"
        time.sleep(1.2)
        xdotool("key", "Escape")  # the offer of the tutorial
        (home / "folder").mkdir()
        for text, name in (("By an address", "a b.md"), ("By another", "c.txt"), ("By a path", "d.md")):
            (home / name).write_text(text)
        addresses = [(home / name).as_uri() for name in ("a b.md", "c.txt")]
        ask("Open", GLib.Variant("(asa{sv})", (addresses, {"activation-token": token})))
        wait_for(lambda: texts() == ["By another", "By an address", "Hello!"], "files that a desktop hands over")
        subprocess.run([executable, "folder", "d.md"], check=True, timeout=10, cwd=home)
        time.sleep(1)
        assert len(texts()) == 3, "that a folder is none is told first"
        xdotool("key", "Escape")
        wait_for(lambda: texts() == ["By a path", "By another", "By an address", "Hello!"], "those of a second start")
    finally:
        os.kill(process, signal.SIGTERM)


if __name__ == "__main__":
    run_on_own_bus(use, prepare)
