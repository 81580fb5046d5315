#!/usr/bin/env python3
"""What a Wayland compositor does to a window: its scale, its size, a screen that goes away, and who is in front.

usage: compositor.py PROGRAM
"""

import os
import subprocess
import time

from wayland import sway
from window import EXECUTABLE, SCREEN, Program, run, wait_for


def delete_and_take_back(program, size):
    """The button that takes it back stands at the window's lower edge."""
    before = program.texts()
    program.drag((size[0] - 30, 30), (40, 30))
    wait_for(lambda: program.texts() == before[1:], "deleted")
    time.sleep(0.6)
    program.tap(84, size[1] - 28)
    wait_for(lambda: program.texts() == before, f"taken back at {size}")
    time.sleep(0.6)


def call_to_front(program):
    """By a second start from another window, which is in front: a click there is what permits it."""
    import gi
    gi.require_version("Gtk", "3.0")
    from gi.repository import Gdk, Gio, Gtk
    sway("focus_on_window_activation", "focus")
    context = Gdk.Display.get_default().get_app_launch_context()
    started = Gio.AppInfo.create_from_commandline(EXECUTABLE, None, Gio.AppInfoCreateFlags.NONE)
    permissions = []
    launcher = Gtk.Window(events=Gdk.EventMask.BUTTON_PRESS_MASK)
    launcher.connect("button-press-event", lambda *_: permissions.append(context.get_startup_notify_id(started, [])))
    launcher.show()

    def is_so(condition):
        while Gtk.events_pending():
            Gtk.main_iteration()
        return condition()
    wait_for(lambda: is_so(lambda: SCREEN.window_of(os.getpid())), "another window")
    assert not SCREEN.is_in_front(program.window)
    SCREEN.move(SCREEN.window_of(os.getpid()), 50, 50)
    SCREEN.press()
    wait_for(lambda: is_so(lambda: permissions), "the click")
    SCREEN.release()
    subprocess.run([EXECUTABLE], env=dict(os.environ, XDG_ACTIVATION_TOKEN=permissions[0]), check=True, timeout=10)
    wait_for(lambda: SCREEN.is_in_front(program.window), "the first window is in front")


def use(home):
    with Program(home) as program:
        window, = SCREEN.windows()
        assert window["app_id"] == "org.velmorath.velmorath", "the desktop entry's name"
        program.decline_tutorial()
        program.add_by_pulling("At first")
        for scale in (1.5, 2, 1):
            sway("output", "*", "scale", scale)
            time.sleep(0.3)
            program.add_by_pulling(f"Scale {scale}")
            program.picture(f"scale-{scale}")
        for size in ((520, 640), (330, 480)):
            program.resize(*size)
            time.sleep(0.3)
            program.picture(f"size-{size[0]}")
            delete_and_take_back(program, size)
        SCREEN.replace_output()
        time.sleep(1)
        program.add_by_pulling("Another screen")
        call_to_front(program)
        program.quit()


run(use)
