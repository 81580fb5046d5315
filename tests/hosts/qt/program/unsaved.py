#!/usr/bin/env python3
"""A change that could not be saved is told by the desktop, once, and saved when the program ends at the latest.

usage: unsaved.py PROGRAM
"""

import os
import sys
import time

from window import Program, run_with_own_bus, wait_for

NAME = "org.freedesktop.Notifications"
NOTIFICATIONS = f"""<node><interface name="{NAME}">
<method name="Notify"><arg type="s" direction="in"/><arg type="u" direction="in"/><arg type="s" direction="in"/>
<arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="as" direction="in"/>
<arg type="a{{sv}}" direction="in"/><arg type="i" direction="in"/><arg type="u" direction="out"/></method>
<method name="CloseNotification"><arg type="u" direction="in"/></method>
</interface></node>"""


class Desktop:
    """Shows notices."""

    def __init__(self):
        from gi.repository import Gio, GLib
        self.GLib = GLib
        self.shown, self.told = {}, []
        bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        interface, = Gio.DBusNodeInfo.new_for_xml(NOTIFICATIONS).interfaces
        bus.register_object("/org/freedesktop/Notifications", interface, self._called, None, None)
        Gio.bus_own_name_on_connection(bus, NAME, Gio.BusNameOwnerFlags.NONE, None, None)

    def _called(self, bus, sender, path, interface, method, arguments, invocation):
        if method == "CloseNotification":
            del self.shown[arguments[0]]
            invocation.return_value(None)
            return
        self.told.append(arguments[4])
        self.shown[len(self.told)] = arguments[4]
        invocation.return_value(self.GLib.Variant("(u)", (len(self.told),)))

    def wait_for(self, condition, what):
        def is_so():
            while self.GLib.MainContext.default().iteration(False):
                pass
            return condition()
        wait_for(is_so, what)


class Folder:
    """Of the notes. A file that stands in its place keeps everybody from saving there, root too."""

    def __init__(self, program):
        self.path = os.path.dirname(program.archive_path())

    def break_off(self):
        os.rename(self.path, self.path + ".away")
        open(self.path, "wb").close()

    def mend(self):
        os.remove(self.path)
        os.rename(self.path + ".away", self.path)


def add(program, text):
    program.until_line("textFieldDidBeginEditing", lambda: program.key("Insert"))
    program.type(text)
    program.key("Return")
    time.sleep(0.5)


def use(executable, home):
    desktop = Desktop()
    for bus in (os.environ["DBUS_SESSION_BUS_ADDRESS"], None):
        program = Program(executable, home, bus=bus)
        try:
            time.sleep(1.2)
            program.key("Escape")  # the offer of the tutorial
            time.sleep(0.6)
            add(program, "Saved")
            known = program.texts()
            folder = Folder(program)
            folder.break_off()
            told = len(desktop.told)
            for text in ("Lost?", "Lost again?"):
                program.until_line("Unable to write to file!", lambda text=text: add(program, text))
            if bus:
                desktop.wait_for(lambda: desktop.shown, "a notice")
                assert "could not be saved" in desktop.told[-1]
            folder.mend()
            assert program.texts() == known, "the old file is as it was"
            if bus:
                add(program, "Saved again")
                desktop.wait_for(lambda: not desktop.shown, "the notice goes")
                assert len(desktop.told) == told + 1, "one for all"
                assert program.texts() == ["Saved again", "Lost again?", "Lost?", *known]
            lines = program.lines().count("ArchiveResults")
            folder.break_off()
            program.until_line("Unable to write to file!", lambda: add(program, "At the end"))
            folder.mend()
            assert program.lines().count("ArchiveResults") == lines + 1
            program.quit()
            assert program.texts()[0] == "At the end"
        finally:
            program.kill()


def main():
    executable = os.path.abspath(sys.argv[1])
    if len(sys.argv) > 2:
        use(executable, sys.argv[2])
        return
    run_with_own_bus(os.path.abspath(__file__), executable)


if __name__ == "__main__":
    main()
