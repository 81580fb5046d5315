#!/usr/bin/env python3
"""What a Wayland compositor does to a window: its scale, its size, a screen that goes away and comes back.

usage: compositor.py PROGRAM [FOLDER FOR PICTURES]
"""

import os
import sys
import tempfile
import time

from window import SCREEN, Program, wait_for


def add(program, text):
    """By pulling, wherever the window's middle is now."""
    program.until_line("textFieldDidBeginEditing", lambda: program.drag((120, 100), (120, 300)))
    program.type(text)
    program.key("Return")
    wait_for(lambda: program.texts()[0] == text, f"{text} is added")
    time.sleep(0.4)


def delete_and_take_back(program, size):
    """The button that takes it back stands at the window's lower edge."""
    before = program.texts()
    program.drag((size[0] - 30, 30), (40, 30))
    wait_for(lambda: program.texts() == before[1:], "deleted")
    time.sleep(0.6)
    program.tap(84, size[1] - 28)
    wait_for(lambda: program.texts() == before, f"taken back at {size}")
    time.sleep(0.6)


def picture(program, name):
    if len(sys.argv) > 2:
        program.screenshot(os.path.join(sys.argv[2], f"{name}.png"))


def main():
    with tempfile.TemporaryDirectory() as home:
        program = Program(os.path.abspath(sys.argv[1]), home, (375, 600))
        try:
            assert [window["app_id"] for window in SCREEN.windows()] == ["org.velmorath.velmorath"], "the desktop entry's name"
            time.sleep(1.2)
            program.key("Escape")  # the offer of the tutorial
            time.sleep(0.6)
            add(program, "At first")
            for scale in (1.5, 2, 1):
                SCREEN.sway("output", "*", "scale", scale)
                time.sleep(0.3)
                add(program, f"Scale {scale}")
                picture(program, f"scale-{scale}")
            for size in ((520, 640), (330, 480)):
                program.resize(*size)
                time.sleep(0.3)
                picture(program, f"size-{size[0]}")
                delete_and_take_back(program, size)
            SCREEN.sway("output", "*", "disable")
            time.sleep(0.5)
            SCREEN.sway("output", "*", "enable")
            time.sleep(0.5)
            add(program, "Another screen")
            program.quit()
        finally:
            program.kill()


if __name__ == "__main__":
    main()
