#!/usr/bin/env python3
"""Every job of the program, done as a screen reader does it, over AT-SPI: what is heard of each, and the file after it.

usage: reader.py PROGRAM
"""

import os
import pathlib
import plistlib
import time

from window import Program, run, wait_for

PAGES = ("Pull the list down to add a note.", "Pull two notes apart to insert a note between them.")


class Reader:
    """Hears what the program tells, and does what it offers."""

    def __init__(self):
        import gi
        gi.require_version("Atspi", "2.0")
        from gi.repository import Atspi, Gio, GLib
        self.atspi = Atspi
        self.context = GLib.MainContext.default()
        status = Gio.DBusProxy.new_for_bus_sync(Gio.BusType.SESSION, Gio.DBusProxyFlags.NONE, None, "org.a11y.Bus",
                                                "/org/a11y/bus", "org.freedesktop.DBus.Properties", None)
        for name in ("IsEnabled", "ScreenReaderEnabled"):
            status.call_sync("Set", GLib.Variant("(ssv)", ("org.a11y.Status", name, GLib.Variant("b", True))),
                             Gio.DBusCallFlags.NONE, -1, None)
        Atspi.init()
        self.heard = []
        self.listener = Atspi.EventListener.new(self._hear)
        for event in ("object:state-changed:focused", "object:state-changed:showing",
                      "object:state-changed:checked", "object:text-changed:insert"):
            self.listener.register(event)

    def _hear(self, event):
        source = event.source
        kind = event.type.split(":")[-1]
        if kind == "focused" and event.detail1:
            self.heard.append(f"{source.get_role_name()}: {source.get_name()}")
        elif kind == "showing" and event.detail1 and source.get_role() == self.atspi.Role.NOTIFICATION:
            self.heard.append(source.get_name())
        elif kind == "checked":
            self.heard.append(f"{source.get_name()} is {'on' if event.detail1 else 'off'}")
        elif event.type.startswith("object:text-changed:insert"):
            self.heard.append(f"+{event.any_data}")

    def pump(self):
        while self.context.iteration(False):
            pass

    def wait_for(self, condition, what):
        def is_so():
            self.pump()
            return condition()
        wait_for(is_so, what, 20)

    def hears(self, expected, deed):
        """Does it, and waits until these beginnings were heard in this order."""
        self.pump()
        self.heard.clear()
        deed()

        def was_heard():
            heard = iter(list(self.heard))
            return all(any(said.startswith(beginning) for said in heard) for beginning in expected)
        try:
            self.wait_for(was_heard, expected)
        except AssertionError:
            raise AssertionError(f"expected {expected}, heard {self.heard}") from None
        assert not any(said.startswith("frame") for said in self.heard), self.heard

    def elements(self, around=None):
        if around is None:
            desktop = self.atspi.get_desktop(0)
            for i in range(desktop.get_child_count()):
                if desktop.get_child_at_index(i).get_name() == "velmorath":
                    yield from self.elements(desktop.get_child_at_index(i))
            return
        around.clear_cache()
        for i in range(around.get_child_count()):
            child = around.get_child_at_index(i)
            if child:
                yield child
                yield from self.elements(child)

    def find(self, name, action=None):
        """An element whose name begins so, as soon as there is one that can do this."""
        found = []

        def look():
            found[:] = [element for element in self.elements() if element.get_name().startswith(name)
                        and (action is None or action in self.actions(element))]
            return found
        self.wait_for(look, f"{name}, {action}")
        return found[-1]

    def editor(self):
        return next(element for element in self.elements() if element.get_role_name() == "text")

    @staticmethod
    def actions(element):
        return [element.get_action_name(i) for i in range(element.get_n_actions())]

    def act(self, name, action="Press"):
        element = self.find(name, action)
        element.do_action(self.actions(element).index(action))


def tutorial(reader):
    reader.hears(["image: " + PAGES[0]], lambda: reader.act("Yes"))
    assert "Control+N" in reader.find(PAGES[0]).get_name()
    reader.hears([PAGES[1]], lambda: reader.act("Next"))
    reader.hears(["panel: Notes, 1"], lambda: reader.act("Close"))


def adding(program, reader):
    reader.hears(["text: Note"], lambda: reader.act("Add note"))
    reader.wait_for(lambda: "SetFocus" not in reader.actions(reader.find("Hello!")), "keys are the editor's")
    reader.hears(["+B", "+u", "+y"], lambda: program.type("Buy mil"))
    editor = reader.editor()
    run = editor.get_attribute_run(3, True)
    assert (run.start_offset, run.end_offset) == (0, 7), "readers read by what attributes apply to"
    assert editor.get_caret_offset() == 7
    assert editor.insert_text(7, "k", 1)
    reader.hears(["list item: Buy milk"], lambda: program.key("Return"))
    saved(program, reader, ["Buy milk", "Hello!"])
    reader.hears(["text: Note"], lambda: program.key("ctrl+n"))
    program.write("Call home")
    saved(program, reader, ["Call home", "Buy milk", "Hello!"])
    reader.find("Notes, 3")
    reader.hears(["text: Note"], lambda: program.key("ctrl+shift+n"))
    program.write("Fix it")
    saved(program, reader, ["Call home", "Fix it", "Buy milk", "Hello!"])
    reader.hears(["text: Note"], lambda: reader.act("Hello!", "Insert below"))
    program.write("Last")
    saved(program, reader, ["Call home", "Fix it", "Buy milk", "Hello!", "Last"])


def looking(program, reader):
    """What is where, and what can be done with it."""
    screen = reader.atspi.CoordType.SCREEN
    rows = reader.find("Notes, 5")
    reader.wait_for(lambda: [row.get_name() for row in reader.elements(rows)] == program.texts(), "the rows")
    second = list(reader.elements(rows))[1]
    assert (second.get_parent(), second.get_index_in_parent()) == (rows, 1)
    assert second.get_description().endswith(", 2/5")
    assert reader.actions(second) == ["Press", "SetFocus", "Edit", "Complete", "Delete", "Insert below", "Move up",
                                      "Move down"]
    window = rows.get_parent().get_parent()
    corner, place = window.get_position(screen), second.get_extents(screen)
    assert (place.x - corner.x, place.y - corner.y, place.width, place.height) == (0, 60, 375, 60)
    assert rows.get_accessible_at_point(corner.x + 10, corner.y + 100, screen) == second


def saved(program, reader, texts):
    reader.wait_for(lambda: program.texts() == texts, texts)


def changing(program, reader):
    reader.hears(["text: Note"], lambda: reader.act("Fix it", "Edit"))
    program.write(" now")
    saved(program, reader, ["Call home", "Fix it now", "Buy milk", "Hello!", "Last"])
    reader.hears(["Completed, Fix it now"], lambda: reader.act("Fix it now", "Complete"))
    saved(program, reader, ["Call home", "x Fix it now", "Buy milk", "Hello!", "Last"])
    reader.hears(["Reopened, Fix it now"], lambda: reader.act("Fix it now", "Reopen"))
    saved(program, reader, ["Call home", "Fix it now", "Buy milk", "Hello!", "Last"])
    reader.hears(["list item: Call home"], lambda: reader.act("Call home", "SetFocus"))
    reader.hears(["Completed, Call home"], lambda: program.key("space"))
    reader.hears(["Moved to 1 of 5"], lambda: reader.act("Fix it now", "Move up"))
    saved(program, reader, ["Fix it now", "x Call home", "Buy milk", "Hello!", "Last"])
    reader.hears(["Deleted, Last"], lambda: reader.act("Last", "Delete"))
    saved(program, reader, ["Fix it now", "x Call home", "Buy milk", "Hello!"])
    reader.hears(["Undone"], lambda: reader.act("Undo: "))
    saved(program, reader, ["Fix it now", "x Call home", "Buy milk", "Hello!", "Last"])
    reader.hears(["Redone"], lambda: program.key("ctrl+shift+z"))
    saved(program, reader, ["Fix it now", "x Call home", "Buy milk", "Hello!"])
    reader.hears(["Reorder notes is on"], lambda: reader.act("Reorder notes"))
    reader.hears(["Reorder notes is off"], lambda: reader.act("Reorder notes"))


def one_note(program, reader):
    reader.hears(["heading: Open note"], lambda: reader.act("Buy milk"))
    text = reader.editor()
    states = text.get_state_set()
    assert states.contains(reader.atspi.StateType.EDITABLE), "Enter edits it"
    assert not states.contains(reader.atspi.StateType.READ_ONLY)
    reader.hears(["text: Note"], lambda: text.do_action(0))
    time.sleep(0.3)
    reader.pump()
    assert reader.heard[-1] == "text: Note", f"what an editor opens with is read, not heard as typed: {reader.heard}"
    program.type(" today")
    program.key("Escape")
    reader.hears(["Saved"], lambda: reader.act("Save"))
    saved(program, reader, ["Fix it now", "x Call home", "Buy milk today", "Hello!"])


def options(program, reader):
    reader.hears(["heading: Velmorath"], lambda: reader.act("Information"))
    reader.hears(["heading: Settings"], lambda: reader.act("Settings"))
    reader.hears(["Vibration is off"], lambda: reader.act("Vibration"))
    reader.hears(["heading: Select theme"], lambda: reader.act("Theme"))
    reader.hears(["Green is on", "Green"], lambda: reader.act("Green"))
    options = pathlib.Path(program.home, ".config/velmorath/defaults.plist")
    reader.wait_for(lambda: "Green" in str(plistlib.loads(options.read_bytes())), "the theme is kept")
    program.key("Escape")
    reader.find("Vibration")
    program.key("Escape")


def mail(program, reader):
    reader.hears(["push button: Cancel"], lambda: reader.act("Contact Us"))
    reader.hears(["label: To: hello@"], lambda: reader.act("To: hello@", "SetFocus"))
    sent = pathlib.Path(program.home, "sent")
    reader.act("Send")
    reader.wait_for(sent.exists, "the mail is handed over")
    assert sent.read_text().startswith("mailto:hello@velmorath.example")


def write_tool(home, name, lines):
    tool = pathlib.Path(home, name)
    tool.write_text("#!/bin/sh\n" + lines)
    tool.chmod(0o755)


def use(home):
    write_tool(home, "xdg-mime", "echo mail.desktop\n")
    write_tool(home, "xdg-open", f"echo \"$1\" >'{home}/part' && mv '{home}/part' '{home}/sent'\n")
    os.environ["PATH"] = home + ":" + os.environ["PATH"]
    reader = Reader()
    with Program(home) as program:
        reader.wait_for(lambda: "dialog: Watch tutorial" in reader.heard, "the offer of the tutorial")
        tutorial(reader)
        for job in (adding, looking, changing, one_note, options, mail):
            job(program, reader)


run(use)
