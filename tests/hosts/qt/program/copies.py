#!/usr/bin/env python3
"""Takes a change back, saves a copy of the list by the desktop's own dialog, and opens files that others wrote, also those
that the program is started with.

usage: copies.py PROGRAM
"""

import os
import sys
import tempfile
import time

from window import Program, wait_for

WIDTH, HEIGHT = 375, 667
SHARE, UNDO = (WIDTH - 84, HEIGHT - 28), (84, HEIGHT - 28)
# In the sheet, from below.
OPEN, SAVE = (WIDTH / 2, HEIGHT - 84), (WIDTH / 2, HEIGHT - 132)


def texts(program):
    return [("x " if completed else "") + text for text, _, completed in program.notes()]


def choose(program, choice, path):
    program.tap(*SHARE)
    time.sleep(0.6)
    program.tap(*choice)
    time.sleep(1)
    program.key("ctrl+a")
    program.type(path)
    program.key("Return")
    time.sleep(0.3)


def main():
    with tempfile.TemporaryDirectory() as home:
        given = os.path.join(home, "--given.md")
        with open(given, "w", encoding="utf-8") as file:
            file.write("Given\n")
        program = Program(os.path.abspath(sys.argv[1]), home, (WIDTH, HEIGHT), arguments=("missing.md", "--", "--given.md"))
        for _ in ("the offer of the tutorial", "that one is missing"):
            time.sleep(1.2)
            assert not os.path.exists(program.archive_path()), "one after the other"
            program.key("Escape")
        wait_for(lambda: texts(program) == ["Given", "Hello!"], "the notes that the program was given")
        time.sleep(0.6)
        program.tap(*UNDO)
        wait_for(lambda: texts(program) == ["Hello!"], "taken back")
        written = os.path.join(home, "list.md")
        with open(written, "w", encoding="utf-8") as file:
            file.write("- [ ] Fresh\n- [x] Done\n  on two lines\n")
        choose(program, OPEN, written)
        wait_for(lambda: texts(program) == ["Fresh", "x Done\non two lines", "Hello!"], "the text's notes are there")

        copy = os.path.join(home, "copy.archive")
        choose(program, SAVE, copy)
        wait_for(lambda: os.path.exists(copy), "the copy is saved")
        with open(copy, "rb") as saved, open(program.archive_path(), "rb") as archive:
            assert saved.read() == archive.read(), "the copy is the archive"

        program.drag((300, 30), (60, 30))
        wait_for(lambda: len(texts(program)) == 2, "a note is deleted")
        choose(program, OPEN, copy)
        wait_for(lambda: texts(program)[0] == "Fresh", "the copy brings it back")
        program.tap(*UNDO)
        wait_for(lambda: len(texts(program)) == 2, "which is taken back")
        program.key("ctrl+z")
        wait_for(lambda: texts(program)[0] == "Fresh", "and so is the deletion")
        program.quit()


if __name__ == "__main__":
    main()
