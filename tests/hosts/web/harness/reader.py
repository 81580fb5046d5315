"""A screen reader: it knows of the browser what the machine's accessibility bus tells, and acts through that. Of a name
what stands before a comma is enough."""

import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, Gio, GLib  # noqa: E402
from helper import serve  # noqa: E402

# What others say in their names.
PARTS = {"static", "text leaf"}


def announce_reader():
    """Browsers tell the bus nothing before somebody listens."""
    bus = Gio.bus_get_sync(Gio.BusType.SESSION)
    for name in ("IsEnabled", "ScreenReaderEnabled"):
        status = GLib.Variant("(ssv)", ("org.a11y.Status", name, GLib.Variant("b", True)))
        bus.call_sync("org.a11y.Bus", "/org/a11y/bus", "org.freedesktop.DBus.Properties", "Set", status, None,
                      Gio.DBusCallFlags.NONE, -1, None)


def below(accessible):
    """All that is in it, in reading order."""
    for index in range(accessible.get_child_count()):
        child = accessible.get_child_at_index(index)
        if child is not None:
            yield child
            yield from below(child)


def named():
    """What has a name on the pages in front."""
    desktop = Atspi.get_desktop(0)
    desktop.clear_cache()
    for document in below(desktop):
        if document.get_role_name() == "document web" and is_in(document, Atspi.StateType.SHOWING):
            for thing in (document, *below(document)):
                if thing.get_name() and thing.get_role_name() not in PARTS:
                    yield thing


def is_in(thing, state):
    return thing.get_state_set().contains(state)


def find(name):
    """The bus is told of what comes a moment later."""
    end = time.monotonic() + 5
    while time.monotonic() < end:
        for thing in named():
            is_called_so = thing.get_name() == name or thing.get_name().startswith(f"{name}, ")
            if is_called_so and thing.get_role_name() != "panel":
                return thing
        time.sleep(0.05)
    raise LookupError(f"There is no {name}")


def press(name):
    """The first action of a thing is its press, under one of many names."""
    find(name).do_action(0)


def show_menu(name):
    find(name).do_action(1)


def focus(name):
    find(name).grab_focus()


def things():
    """[role, name] of each, in reading order."""
    return [[thing.get_role_name(), thing.get_name()] for thing in named()]


def focused():
    """The name of what has the keys, or None."""
    return next((thing.get_name() for thing in named() if is_in(thing, Atspi.StateType.FOCUSED)), None)


announce_reader()
Atspi.init()
serve(press, show_menu, focus, things, focused)
