#!/usr/bin/env python3
"""A desktop starts the program over the session bus, and calls its window.

usage: activation.py PROGRAM
"""

import os
import pathlib
import re
import signal
import subprocess
import sys
import tempfile
import time

from window import texts_of, wait_for
from x11 import xdotool

NAME = "org.velmorath.velmorath"


def windows():
    return subprocess.run(["xdotool", "search", "--onlyvisible", "--name", "Velmorath"], capture_output=True,
                          text=True).stdout.split()


def is_in_front(window):
    found = subprocess.run(["xdotool", "getactivewindow"], capture_output=True, text=True)
    return found.stdout.strip() == window


def texts():
    return texts_of(os.path.join(os.environ["XDG_DATA_HOME"], "velmorath/Documents/noteSalvate.archive"))


def use(executable):
    from gi.repository import Gio, GLib
    bus = Gio.bus_get_sync(Gio.BusType.SESSION)

    def call(name, path, interface, method, arguments):
        return bus.call_sync(name, path, interface, method, arguments, None, Gio.DBusCallFlags.NONE, 10000).unpack()

    def ask(method, arguments):
        return call(NAME, "/org/velmorath/velmorath", "org.freedesktop.Application", method, arguments)

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
        files = {name: pathlib.Path(os.environ["HOME"], name) for name in ("a b.md", "c.txt", "d.md", "folder")}
        files["folder"].mkdir()
        for text, name in (("By an address", "a b.md"), ("By another", "c.txt"), ("By a path", "d.md")):
            files[name].write_text(text)
        addresses = [files[name].as_uri() for name in ("a b.md", "c.txt")]
        ask("Open", GLib.Variant("(asa{sv})", (addresses, {"activation-token": token})))
        wait_for(lambda: texts() == ["By another", "By an address", "Hello!"], "files that a desktop hands over")
        subprocess.run([executable, "folder", "d.md"], check=True, timeout=10, cwd=os.environ["HOME"])
        time.sleep(1)
        assert len(texts()) == 3, "that a folder is none is told first"
        xdotool("key", "Escape")
        wait_for(lambda: texts() == ["By a path", "By another", "By an address", "Hello!"], "those of a second start")
    finally:
        os.kill(process, signal.SIGTERM)


def main():
    executable = pathlib.Path(sys.argv[1]).resolve()
    if len(sys.argv) > 2:
        use(executable)
        return
    # The portal of a desktop leaves a folder there that it still holds on to.
    with tempfile.TemporaryDirectory(ignore_cleanup_errors=True) as home:
        services = pathlib.Path(home, "dbus-1/services")
        services.mkdir(parents=True)
        service = (executable.parent / f"{NAME}.service").read_text()
        (services / f"{NAME}.service").write_text(re.sub("^Exec=.*$", f"Exec={executable}", service, flags=re.MULTILINE))
        environment = dict(os.environ, HOME=home, XDG_RUNTIME_DIR=home, XDG_DATA_HOME=home)
        session = ["dbus-run-session", "--", sys.executable, os.path.abspath(__file__), executable, "use"]
        sys.exit(subprocess.run(session, env=environment).returncode)


if __name__ == "__main__":
    main()
