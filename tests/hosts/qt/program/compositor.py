#!/usr/bin/env python3
"""What a Wayland compositor does to a window: its scale, its size, a screen that goes away and comes back, and who is in
front.

usage: compositor.py PROGRAM [FOLDER FOR PICTURES]
"""

import os
import subprocess
import sys
import tempfile
import time

from window import SCREEN, Program, wait_for


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
    """By a second start, where another window is in front."""
    SCREEN.sway("focus_on_window_activation", "focus")
    executable = program.process.args[0]
    with tempfile.TemporaryDirectory() as home, Program(executable, home):
        assert not SCREEN.is_in_front(program.window)
        environment = dict(os.environ, HOME=program.home, XDG_RUNTIME_DIR=program.home,
                           XDG_ACTIVATION_TOKEN=SCREEN.permission())
        subprocess.run([executable], env=environment, check=True, timeout=10)
        wait_for(lambda: SCREEN.is_in_front(program.window), "the first window is in front")


def use(program):
    assert [window["app_id"] for window in SCREEN.windows()] == ["org.velmorath.velmorath"], "the desktop entry's name"
    program.decline_tutorial()
    program.add_by_pulling("At first")
    for scale in (1.5, 2, 1):
        SCREEN.sway("output", "*", "scale", scale)
        time.sleep(0.3)
        program.add_by_pulling(f"Scale {scale}")
        program.picture(f"scale-{scale}")
    for size in ((520, 640), (330, 480)):
        program.resize(*size)
        time.sleep(0.3)
        program.picture(f"size-{size[0]}")
        delete_and_take_back(program, size)
    for state in ("disable", "enable"):
        SCREEN.sway("output", "*", state)
        time.sleep(0.5)
    program.add_by_pulling("Another screen")
    call_to_front(program)
    program.quit()


if __name__ == "__main__":
    with tempfile.TemporaryDirectory() as folder, Program(os.path.abspath(sys.argv[1]), folder, (375, 600)) as started:
        use(started)
