"""The real program in a real window: starts it, moves the pointer and the keys, reads its archive."""

import os
import plistlib
import signal
import subprocess
import sys
import tempfile
import threading
import time

if "WAYLAND_DISPLAY" in os.environ:
    from wayland import Screen
else:
    from x11 import Screen

SCREEN = Screen()


class Program:
    """One run of the program. Its files stay in `home`, where it runs, from one run to the next. Without a bus it has none."""

    def __init__(self, executable, home, size=None, bus=None, arguments=()):
        environment = dict(os.environ, HOME=home, XDG_RUNTIME_DIR=home, LC_ALL="C.UTF-8")
        for name in ("XDG_DATA_HOME", "XDG_CONFIG_HOME", "DBUS_SESSION_BUS_ADDRESS"):
            environment.pop(name, None)
        if bus:
            environment["DBUS_SESSION_BUS_ADDRESS"] = bus
        self.home = home
        self.lines_file = open(os.path.join(home, "lines.txt"), "w+", encoding="utf-8")
        self.process = subprocess.Popen([executable, *arguments], env=environment, cwd=home, stdout=self.lines_file)
        wait_for(lambda: SCREEN.window_of(self.process.pid), "the program shows a window", 10)
        self.window = SCREEN.window_of(self.process.pid)
        if size:
            self.resize(*size)
        time.sleep(0.4)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        if self.process.poll() is None:
            self.kill()

    def decline_tutorial(self):
        """It is offered at the first start."""
        time.sleep(1.2)
        self.key("Escape")
        time.sleep(0.6)

    def quit(self):
        """Closes the window as its close button does, and waits until the program has ended."""
        SCREEN.close(self.window)
        code = self.process.wait(timeout=10)
        self.lines_file.close()
        assert code == 0, f"the program ended with {code}"

    def kill(self):
        self.process.send_signal(signal.SIGKILL)
        self.process.wait(timeout=10)
        self.lines_file.close()

    def lines(self):
        self.lines_file.seek(0)
        return self.lines_file.read().split("\n")

    def until_line(self, line, action):
        """Does something, and waits until the program has written this line once more."""
        before = self.lines().count(line)
        action()
        wait_for(lambda: self.lines().count(line) > before, line)
        time.sleep(0.4)  # what slides, slides

    def resize(self, width, height):
        SCREEN.resize(self.window, width, height)

    # The pointer. Points are the window's.

    def move(self, x, y):
        SCREEN.move(self.window, x, y)

    def tap(self, x, y):
        self.move(x, y)
        SCREEN.press()
        time.sleep(0.05)
        SCREEN.release()
        time.sleep(0.1)

    def drag(self, start, end, steps=12, release=True, button_down=True):
        """A finger that goes from one point to another in about a third of a second."""
        self.move(*start)
        if button_down:
            SCREEN.press()
        for step in range(1, steps + 1):
            part = step / steps
            self.move(start[0] + (end[0] - start[0]) * part, start[1] + (end[1] - start[1]) * part)
            time.sleep(0.02)
        if release:
            self.release()

    def release(self):
        time.sleep(0.05)
        SCREEN.release()
        time.sleep(0.1)

    def wheel(self, x, y, notches):
        self.move(x, y)
        SCREEN.scroll(notches)
        time.sleep(0.2)

    def type(self, text):
        SCREEN.type(text)
        time.sleep(0.15)

    def key(self, name):
        SCREEN.key(name)
        time.sleep(0.15)

    def add(self, text):
        self.until_line("textFieldDidBeginEditing", lambda: self.key("Insert"))
        self.type(text)
        self.key("Return")
        time.sleep(0.5)

    def add_by_pulling(self, text):
        self.until_line("textFieldDidBeginEditing", lambda: self.drag((120, 100), (120, 320)))
        self.type(text)
        self.key("Return")
        wait_for(lambda: self.texts()[0] == text, f"{text} is added")
        time.sleep(0.4)

    def picture(self, name):
        """Where the tests are given a folder for pictures."""
        if len(sys.argv) > 2:
            SCREEN.screenshot(self.window, os.path.join(sys.argv[2], f"{name}.png"))

    # What is on the disk, as another program reads it.

    def archive_path(self):
        return archive_path(self.home)

    def notes(self):
        return notes_of(self.archive_path())

    def texts(self):
        return [text for text, _, _ in self.notes()]

    def marked_texts(self):
        """With "x " before those of completed notes."""
        return [("x " if completed else "") + text for text, _, completed in self.notes()]


def archive_path(home):
    return os.path.join(home, ".local/share/velmorath/Documents/noteSalvate.archive")


def notes_of(path):
    """(text, date, completed) of every note in a file, top first."""
    with open(path, "rb") as file:
        archive = plistlib.load(file)
    objects = archive["$objects"]

    def value(entry):
        found = objects[entry.data] if isinstance(entry, plistlib.UID) else entry
        return None if found == "$null" else found

    root = value(archive["$top"]["root"])
    notes = []
    for reference in root["NS.objects"]:
        record = value(reference)
        assert value(record["$class"])["$classname"] == "_TtC9Velmorath9ToDoItem2"
        notes.append((value(record["text"]), value(record["data"]), value(record["completed"])))
    return notes


def run_on_own_bus(use, prepare=lambda executable, home: None):
    """Calls use(PROGRAM, HOME) on a session bus of its own, with a home of its own, which may be prepared before; ends
    as that does."""
    executable, *home = map(os.path.abspath, sys.argv[1:])
    if home:
        use(executable, home[0])
        return
    # The portal of a desktop leaves a folder there that it still holds on to.
    with tempfile.TemporaryDirectory(ignore_cleanup_errors=True) as home:
        prepare(executable, home)
        session = ["dbus-run-session", "--", sys.executable, "-W", "ignore", sys.argv[0], executable, home]
        environment = dict(os.environ, HOME=home, XDG_RUNTIME_DIR=home, XDG_DATA_HOME=os.path.join(home, ".local/share"))
        sys.exit(subprocess.run(session, env=environment).returncode)


def serve(name, path, interface, answer):
    """What a desktop has on the session bus: answers answer(bus, sender, method, arguments), in a thread of its own."""
    from gi.repository import Gio, GLib
    bus = Gio.bus_get_sync(Gio.BusType.SESSION)

    def called(_, sender, __, ___, method, arguments, invocation):
        invocation.return_value(answer(bus, sender, method, arguments.unpack()))

    bus.register_object(path, Gio.DBusNodeInfo.new_for_xml(interface).interfaces[0], called, None, None)
    Gio.bus_own_name_on_connection(bus, name, Gio.BusNameOwnerFlags.NONE, None, None)
    threading.Thread(target=GLib.MainLoop().run, daemon=True).start()


def wait_for(condition, what, seconds=5):
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        try:
            if condition():
                return
        except FileNotFoundError:
            pass
        time.sleep(0.05)
    raise AssertionError(f"waited in vain: {what}")
