#!/usr/bin/env python3
"""Saves and opens a copy by the portal of a desktop, which knows its own way to choose a file.

usage: portal.py PROGRAM
"""

import os
import pathlib
import subprocess
import sys
import tempfile
import time

from window import Program, wait_for

NAME = "org.freedesktop.portal.Desktop"
INTERFACE = """<node><interface name="org.freedesktop.portal.FileChooser">
    <method name="OpenFile"><arg type="s" direction="in"/><arg type="s" direction="in"/>
        <arg type="a{sv}" direction="in"/><arg type="o" direction="out"/></method>
    <method name="SaveFile"><arg type="s" direction="in"/><arg type="s" direction="in"/>
        <arg type="a{sv}" direction="in"/><arg type="o" direction="out"/></method>
</interface></node>"""
WIDTH, HEIGHT = 375, 667
SHARE = (WIDTH - 84, HEIGHT - 28)
# In the sheet, from below.
OPEN, SAVE = (WIDTH / 2, HEIGHT - 84), (WIDTH / 2, HEIGHT - 132)


def be_portal(folder):
    """Every choice is "a list.archive" in this folder; what was asked for is in "asked". Never ends."""
    from gi.repository import Gio, GLib
    bus = Gio.bus_get_sync(Gio.BusType.SESSION)

    def choose(_, sender, __, ___, method, arguments, invocation):
        options = arguments.unpack()[2]
        request = f"/org/freedesktop/portal/desktop/request/{sender[1:].replace('.', '_')}/{options['handle_token']}"
        with open(folder / "asked", "a", encoding="utf-8") as asked:
            asked.write(f"{method} {options.get('current_name', '')}\n")
        uri = (folder / "a list.archive").as_uri()
        # Before the call returns, as it may.
        bus.emit_signal(sender, request, "org.freedesktop.portal.Request", "Response",
                        GLib.Variant("(ua{sv})", (0, {"uris": GLib.Variant("as", [uri])})))
        invocation.return_value(GLib.Variant("(o)", (request,)))

    interface = Gio.DBusNodeInfo.new_for_xml(INTERFACE).interfaces[0]
    bus.register_object("/org/freedesktop/portal/desktop", interface, choose, None, None)
    Gio.bus_own_name_on_connection(bus, NAME, Gio.BusNameOwnerFlags.NONE, None, None)
    GLib.MainLoop().run()


def use(executable, folder):
    program = Program(executable, str(folder), (WIDTH, HEIGHT), os.environ["DBUS_SESSION_BUS_ADDRESS"])
    time.sleep(1.2)
    program.key("Escape")  # the offer of the tutorial
    time.sleep(0.6)

    def choose(choice):
        program.tap(*SHARE)
        time.sleep(0.6)
        program.tap(*choice)

    choose(SAVE)
    copy = folder / "a list.archive"
    wait_for(copy.exists, "the copy is where the portal said")
    program.drag((60, 30), (300, 30))
    wait_for(lambda: program.notes()[0][2], "the note is completed")
    choose(OPEN)
    wait_for(lambda: len(program.notes()) == 2, "the open one has come from the copy")
    asked = (folder / "asked").read_text(encoding="utf-8").split("\n")
    assert asked[0].startswith("SaveFile velmorath-") and asked[1] == "OpenFile ", asked
    program.quit()


def main():
    executable, *role = sys.argv[1:]
    if role:
        role, folder = role[0], pathlib.Path(role[1])
        if role == "portal":
            be_portal(folder)
        portal = subprocess.Popen([sys.executable, __file__, executable, "portal", folder])
        try:
            time.sleep(1)
            use(executable, folder)
        finally:
            portal.kill()
        return
    with tempfile.TemporaryDirectory() as folder:
        session = ["dbus-run-session", "--", sys.executable, os.path.abspath(__file__), executable, "use", folder]
        sys.exit(subprocess.run(session).returncode)


if __name__ == "__main__":
    main()
