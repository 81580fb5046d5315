"""The real program in a real window: starts it, moves the pointer and the keys, reads its archive."""

import os
import pathlib
import signal
import subprocess
import sys
import tempfile
import threading
import time

sys.path.append(str(pathlib.Path(__file__).parents[3] / "tools"))
import archive_exchange

if "WAYLAND_DISPLAY" in os.environ:
    from wayland import Screen
else:
    from x11 import Screen

SCREEN = Screen()
EXECUTABLE = os.path.abspath(sys.argv[1])
WIDTH, HEIGHT, ROW = 375, 667, 60
# What the program says when a text is being typed.
BEGINS = "textFieldDidBeginEditing"


def archive(home):
    return pathlib.Path(home, ".local/share/velmorath/Documents/noteSalvate.archive")


def texts_in(home):
    """The texts of all notes in the file, as another program reads it, with "x " before those of completed ones."""
    return [("x " if completed else "") + text
            for text, _, completed in archive_exchange.read(archive(home))]


class Program:
    """One run of the program. Its files stay in `home`, where it runs, from one run to the next."""

    def __init__(self, home, arguments=(), has_bus=True):
        environment = dict(os.environ, HOME=home, XDG_RUNTIME_DIR=home, LC_ALL="C.UTF-8")
        if not has_bus:
            del environment["DBUS_SESSION_BUS_ADDRESS"]
        self.home = home
        with open(os.path.join(home, "lines.txt"), "w", encoding="utf-8") as lines:
            self.process = subprocess.Popen([EXECUTABLE, *arguments], env=environment, cwd=home, stdout=lines)
        wait_for(lambda: SCREEN.window_of(self.process.pid), "the program shows a window")
        self.window = SCREEN.window_of(self.process.pid)
        self.resize(WIDTH, HEIGHT)
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
        assert code == 0, f"the program ended with {code}"

    def kill(self):
        self.process.send_signal(signal.SIGKILL)
        self.process.wait(timeout=10)

    def lines(self):
        return pathlib.Path(self.home, "lines.txt").read_text(encoding="utf-8").split("\n")

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
        self.release()

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

    @staticmethod
    def release():
        time.sleep(0.05)
        SCREEN.release()
        time.sleep(0.1)

    def swipe(self, row, way, release=True):
        """Most of the window's width: to the right completes or opens again, to the left (-1) deletes."""
        y = ROW * row + ROW // 2
        self.drag((WIDTH / 2 - 150 * way, y), (WIDTH / 2 + 150 * way, y), release=release)

    def tap_below(self, x, above=28):
        """On the bar, or on a sheet that stands there; from the right when it is negative."""
        self.tap(x % WIDTH, HEIGHT - above)

    def undo(self):
        self.tap_below(84)

    @staticmethod
    def type(text):
        SCREEN.type(text)
        time.sleep(0.15)

    @staticmethod
    def key(name):
        SCREEN.key(name)
        time.sleep(0.15)

    def write(self, text):
        """Into the editor that has the focus; ends the typing."""
        self.type(text)
        self.key("Return")

    def add(self, text):
        self.until_line(BEGINS, lambda: self.key("Insert"))
        self.write(text)
        time.sleep(0.5)

    def add_by_pulling(self, text):
        self.until_line(BEGINS, lambda: self.drag((120, 100), (120, 320)))
        self.write(text)
        wait_for(lambda: self.texts()[0] == text, f"{text} is added")
        time.sleep(0.4)

    @staticmethod
    def picture(name):
        """Of the whole screen, where the tests are given a folder for pictures."""
        if folder := os.environ.get("VELMORATH_PICTURES"):
            subprocess.run(["import", "-window", "root", os.path.join(folder, f"{name}.png")], check=True)

    def texts(self):
        return texts_in(self.home)

    def wait_for_texts(self, texts, why):
        """At the top of the list, on the disk."""
        wait_for(lambda: self.texts()[:len(texts)] == texts, f"{why}: {texts}")


def run(use):
    """Calls use(HOME), an empty folder, on a session bus of its own; ends as that does."""
    if len(sys.argv) > 2:
        use(sys.argv[2])
        return
    # Services that the bus has started may still hold on to what is in there.
    with tempfile.TemporaryDirectory(ignore_cleanup_errors=True) as home:
        session = ["dbus-run-session", "--", sys.executable, "-W", "ignore", sys.argv[0], EXECUTABLE, home]
        environment = dict(os.environ, HOME=home, XDG_RUNTIME_DIR=home)
        for name in ("XDG_DATA_HOME", "XDG_CONFIG_HOME"):
            environment.pop(name, None)
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


def wait_for(condition, what, seconds=10):
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        try:
            if condition():
                return
        except FileNotFoundError:
            pass
        time.sleep(0.05)
    raise AssertionError(f"waited in vain: {what}")
