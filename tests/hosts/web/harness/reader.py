"""What a screen reader does, on the machine's accessibility bus. A request is a line of JSON, and so is its answer:
{"press": NAME}, {"showMenu": NAME}, {"focus": NAME}, {"things": null}, {"focused": null}. What stands before a comma
in a name is enough."""

import json
import sys
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, Gio, GLib  # noqa: E402

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


def things():
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
        for thing in things():
            is_called_so = thing.get_name() == name or thing.get_name().startswith(f"{name}, ")
            if is_called_so and thing.get_role_name() != "panel":
                return thing
        time.sleep(0.05)
    raise LookupError(f"There is no {name}")


def act(name, action):
    """The first action of a thing is its press, under one of many names."""
    return find(name).do_action(action)


def answer(kind, name):
    if kind == "press":
        return act(name, 0)
    if kind == "showMenu":
        return act(name, 1)
    if kind == "focus":
        return find(name).grab_focus()
    if kind == "things":
        return [[thing.get_role_name(), thing.get_name()] for thing in things()]
    if kind == "focused":
        return next((thing.get_name() for thing in things() if is_in(thing, Atspi.StateType.FOCUSED)), None)
    raise LookupError(f"What is {kind}?")


announce_reader()
Atspi.init()
for line in sys.stdin:
    try:
        ((kind, name),) = json.loads(line).items()
        result = {"answer": answer(kind, name)}
    except (LookupError, GLib.Error) as error:
        result = {"error": str(error)}
    print(json.dumps(result), flush=True)
