#!/usr/bin/env python3
"""Saves and opens a copy by the portal of a desktop, which knows its own way to choose a file.

usage: portal.py PROGRAM
"""

import os
import pathlib

from copies import HEIGHT, OPEN, SAVE, WIDTH, choose
from window import Program, run_on_own_bus, serve, wait_for

INTERFACE = """<node><interface name="org.freedesktop.portal.FileChooser">
    <method name="OpenFile"><arg type="s" direction="in"/><arg type="s" direction="in"/>
        <arg type="a{sv}" direction="in"/><arg type="o" direction="out"/></method>
    <method name="SaveFile"><arg type="s" direction="in"/><arg type="s" direction="in"/>
        <arg type="a{sv}" direction="in"/><arg type="o" direction="out"/></method>
</interface></node>"""


def use(executable, home):
    from gi.repository import GLib
    copy = pathlib.Path(home, "a list.archive")
    asked = []

    def choose_copy(bus, sender, method, arguments):
        options = arguments[2]
        request = f"/org/freedesktop/portal/desktop/request/{sender[1:].replace('.', '_')}/{options['handle_token']}"
        asked.append(f"{method} {options.get('current_name', '')}")
        # Before the call returns, as it may.
        bus.emit_signal(sender, request, "org.freedesktop.portal.Request", "Response",
                        GLib.Variant("(ua{sv})", (0, {"uris": GLib.Variant("as", [copy.as_uri()])})))
        return GLib.Variant("(o)", (request,))

    serve("org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop", INTERFACE, choose_copy)
    with Program(executable, home, (WIDTH, HEIGHT), os.environ["DBUS_SESSION_BUS_ADDRESS"]) as program:
        program.decline_tutorial()
        choose(program, SAVE)
        wait_for(copy.exists, "the copy is where the portal said")
        program.drag((60, 30), (300, 30))
        wait_for(lambda: program.notes()[0][2], "the note is completed")
        choose(program, OPEN)
        wait_for(lambda: len(program.notes()) == 2, "the open one has come from the copy")
        assert asked[0].startswith("SaveFile velmorath-") and asked[1] == "OpenFile ", asked
        program.quit()


if __name__ == "__main__":
    run_on_own_bus(use)
