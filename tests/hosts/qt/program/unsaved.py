#!/usr/bin/env python3
"""A change that could not be saved is told by the desktop, once, and saved when the program ends at the latest; also
where a file that cannot be read stands in its place and cannot be put out of the way.

usage: unsaved.py PROGRAM
"""

import os

from window import Program, archive_path, run_on_own_bus, serve, wait_for

NAME = "org.freedesktop.Notifications"
INTERFACE = f"""<node><interface name="{NAME}">
<method name="Notify"><arg type="s" direction="in"/><arg type="u" direction="in"/><arg type="s" direction="in"/>
<arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="as" direction="in"/>
<arg type="a{{sv}}" direction="in"/><arg type="i" direction="in"/><arg type="u" direction="out"/></method>
<method name="CloseNotification"><arg type="u" direction="in"/></method>
</interface></node>"""


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


def use(executable, home):
    from gi.repository import GLib
    shown, told = {}, []

    def notify(_, __, method, arguments):
        if method == "CloseNotification":
            del shown[arguments[0]]
            return None
        told.append(arguments[4])
        shown[len(told)] = arguments[4]
        return GLib.Variant("(u)", (len(told),))

    serve(NAME, "/org/freedesktop/Notifications", INTERFACE, notify)
    place = archive_path(home)
    os.makedirs(os.path.dirname(place))
    os.symlink(place, place)
    with Program(executable, home, bus=os.environ["DBUS_SESSION_BUS_ADDRESS"]) as program:
        program.decline_tutorial()
        program.until_line("Unable to write to file!", lambda: program.add("Beside"))
        wait_for(lambda: shown, "a notice")
        os.remove(place)
        program.add("Saved")
        wait_for(lambda: not shown, "the notice goes")
        assert program.texts() == ["Saved", "Beside", "Hello!"]
    for bus in (os.environ["DBUS_SESSION_BUS_ADDRESS"], None):
        with Program(executable, home, bus=bus) as program:
            program.decline_tutorial()
            program.add("Saved")
            known = program.texts()
            folder = Folder(program)
            folder.break_off()
            before = len(told)
            for text in ("Lost?", "Lost again?"):
                program.until_line("Unable to write to file!", lambda text=text: program.add(text))
            if bus:
                wait_for(lambda: shown, "a notice")
                assert "could not be saved" in told[-1]
            folder.mend()
            assert program.texts() == known, "the old file is as it was"
            if bus:
                program.add("Saved again")
                wait_for(lambda: not shown, "the notice goes")
                assert len(told) == before + 1, "one for all"
                assert program.texts() == ["Saved again", "Lost again?", "Lost?", *known]
            lines = program.lines().count("ArchiveResults")
            folder.break_off()
            program.until_line("Unable to write to file!", lambda: program.add("At the end"))
            folder.mend()
            assert program.lines().count("ArchiveResults") == lines + 1
            program.quit()
            assert program.texts()[0] == "At the end"


if __name__ == "__main__":
    run_on_own_bus(use)
