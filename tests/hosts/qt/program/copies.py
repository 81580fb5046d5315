#!/usr/bin/env python3
"""Takes a change back, saves a copy of the list and opens files that others wrote, by the program's own dialog and by
the portal of a desktop, which knows its own way to choose a file; also those that the program is started with.

usage: copies.py PROGRAM
"""

import pathlib
import time

from window import WIDTH, Program, archive, run, serve, wait_for

# In the sheet, from below.
OPEN, SAVE = 84, 132
PORTAL = """<node><interface name="org.freedesktop.portal.FileChooser">
    <method name="OpenFile"><arg type="s" direction="in"/><arg type="s" direction="in"/>
        <arg type="a{sv}" direction="in"/><arg type="o" direction="out"/></method>
    <method name="SaveFile"><arg type="s" direction="in"/><arg type="s" direction="in"/>
        <arg type="a{sv}" direction="in"/><arg type="o" direction="out"/></method>
</interface></node>"""


def choose(program, choice):
    program.tap_below(-84)
    time.sleep(0.6)
    program.tap_below(WIDTH / 2, choice)


def choose_file(program, choice, path):
    choose(program, choice)
    time.sleep(1)
    program.key("ctrl+a")
    program.write(str(path))
    time.sleep(0.3)


def by_dialog(program, home):
    program.undo()
    program.wait_for_texts(["Hello!"], "what it was given is taken back")
    text = home / "list.md"
    text.write_text("- [ ] Fresh\n- [x] Done\n  on two lines\n")
    choose_file(program, OPEN, text)
    program.wait_for_texts(["Fresh", "x Done\non two lines", "Hello!"], "the text's notes are there")

    copy = home / "copy.archive"
    choose_file(program, SAVE, copy)
    wait_for(copy.exists, "the copy is saved")
    assert copy.read_bytes() == archive(home).read_bytes(), "the copy is the archive"

    left = ["x Done\non two lines", "Hello!"]
    program.swipe(0, -1)
    program.wait_for_texts(left, "a note is deleted")
    choose_file(program, OPEN, copy)
    program.wait_for_texts(["Fresh", *left], "the copy brings it back")
    program.undo()
    program.wait_for_texts(left, "which is taken back")
    program.key("ctrl+z")
    program.wait_for_texts(["Fresh", *left], "and so is the deletion")


def by_portal(program, home):
    from gi.repository import GLib
    copy = home / "a list.archive"
    asked = []

    def choose_copy(bus, sender, method, arguments):
        options = arguments[2]
        request = f"/org/freedesktop/portal/desktop/request/{sender[1:].replace('.', '_')}/{options['handle_token']}"
        asked.append(f"{method} {options.get('current_name', '')}")
        # Before the call returns, as it may.
        bus.emit_signal(sender, request, "org.freedesktop.portal.Request", "Response",
                        GLib.Variant("(ua{sv})", (0, {"uris": GLib.Variant("as", [copy.as_uri()])})))
        return GLib.Variant("(o)", (request,))

    serve("org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop", PORTAL, choose_copy)
    choose(program, SAVE)
    wait_for(copy.exists, "the copy is where the portal said")
    program.swipe(0, 1)
    program.wait_for_texts(["x Fresh"], "the note is completed")
    choose(program, OPEN)
    program.wait_for_texts(["Fresh", "x Fresh"], "the open one has come from the copy")
    assert asked[0].startswith("SaveFile velmorath-") and asked[1] == "OpenFile ", asked


def use(home):
    folder = pathlib.Path(home)
    (folder / "--given.md").write_text("Given\n")
    with Program(home, ("missing.md", "--", "--given.md")) as program:
        for _ in ("the offer of the tutorial", "that one is missing"):
            time.sleep(1.2)
            assert not archive(home).exists(), "one after the other"
            program.key("Escape")
        program.wait_for_texts(["Given", "Hello!"], "the notes that the program was given")
        time.sleep(0.6)
        by_dialog(program, folder)
        by_portal(program, folder)
        program.quit()


run(use)
