#!/usr/bin/env python3
"""A change that could not be saved is told by the desktop, once, and saved when the program ends at the latest; also
where a file that cannot be read stands in its place and cannot be put out of the way.

usage: unsaved.py PROGRAM
"""

import pathlib

from window import Program, archive, run, serve, wait_for

FAILS = "Unable to write to file!"
NAME = "org.freedesktop.Notifications"
INTERFACE = f"""<node><interface name="{NAME}">
<method name="Notify"><arg type="s" direction="in"/><arg type="u" direction="in"/><arg type="s" direction="in"/>
<arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="as" direction="in"/>
<arg type="a{{sv}}" direction="in"/><arg type="i" direction="in"/><arg type="u" direction="out"/></method>
<method name="CloseNotification"><arg type="u" direction="in"/></method>
</interface></node>"""


class Folder:
    """Of the notes. A file that stands in its place keeps everybody from saving there, root too."""

    def __init__(self, home):
        self.path = archive(home).parent
        self.away = pathlib.Path(home, "away")

    def break_off(self):
        self.path.rename(self.away)
        self.path.touch()

    def mend(self):
        self.path.unlink()
        self.away.rename(self.path)


class Notices:
    """What the desktop says."""

    def __init__(self):
        self.told, self.shown = [], set()
        serve(NAME, "/org/freedesktop/Notifications", INTERFACE, self.answer)

    def answer(self, _, __, method, arguments):
        if method == "CloseNotification":
            self.shown.remove(arguments[0])
            return None
        from gi.repository import GLib
        self.told.append(arguments[4])
        self.shown.add(len(self.told))
        return GLib.Variant("(u)", (len(self.told),))


def beside_an_unreadable_file(home, notices):
    place = archive(home)
    place.parent.mkdir(parents=True)
    place.symlink_to(place)
    with Program(home) as program:
        program.decline_tutorial()
        program.until_line(FAILS, lambda: program.add("Beside"))
        wait_for(lambda: notices.shown, "a notice")
        place.unlink()
        program.add("Saved")
        wait_for(lambda: not notices.shown, "the notice goes")
        program.add("Later")
        assert program.texts() == ["Later", "Saved", "Beside", "Hello!"]
        assert list(place.parent.iterdir()) == [place], "what was saved is readable"


def in_a_folder_that_breaks(home, notices, has_bus):
    folder = Folder(home)
    with Program(home, has_bus=has_bus) as program:
        program.decline_tutorial()
        known = program.texts()
        folder.break_off()
        notices.told.clear()
        for text in ("Lost?", "Lost again?"):
            program.until_line(FAILS, lambda text=text: program.add(text))
        if has_bus:
            wait_for(lambda: notices.shown, "a notice")
            assert "could not be saved" in notices.told[-1]
        folder.mend()
        assert program.texts() == known, "the old file is as it was"
        if has_bus:
            program.add("Saved again")
            wait_for(lambda: not notices.shown, "the notice goes")
            assert len(notices.told) == 1, "one for all"
            assert program.texts() == ["Saved again", "Lost again?", "Lost?", *known]
        lines = program.lines().count("ArchiveResults")
        folder.break_off()
        program.until_line(FAILS, lambda: program.add("At the end"))
        folder.mend()
        assert program.lines().count("ArchiveResults") == lines + 1
        program.quit()
        assert program.texts()[0] == "At the end"


def use(home):
    notices = Notices()
    beside_an_unreadable_file(home, notices)
    for has_bus in (True, False):
        in_a_folder_that_breaks(home, notices, has_bus)


run(use)
