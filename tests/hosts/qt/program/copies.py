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


def choose(program, choice):
    program.tap(*SHARE)
    time.sleep(0.6)
    program.tap(*choice)


def choose_file(program, choice, path):
    choose(program, choice)
    time.sleep(1)
    program.key("ctrl+a")
    program.type(path)
    program.key("Return")
    time.sleep(0.3)


def write(folder, name, text):
    path = os.path.join(folder, name)
    with open(path, "w", encoding="utf-8") as file:
        file.write(text)
    return path


def use(program, home):
    for _ in ("the offer of the tutorial", "that one is missing"):
        time.sleep(1.2)
        assert not os.path.exists(program.archive_path()), "one after the other"
        program.key("Escape")
    texts = program.marked_texts
    wait_for(lambda: texts() == ["Given", "Hello!"], "the notes that the program was given")
    time.sleep(0.6)
    program.tap(*UNDO)
    wait_for(lambda: texts() == ["Hello!"], "taken back")
    choose_file(program, OPEN, write(home, "list.md", "- [ ] Fresh\n- [x] Done\n  on two lines\n"))
    wait_for(lambda: texts() == ["Fresh", "x Done\non two lines", "Hello!"], "the text's notes are there")

    copy = os.path.join(home, "copy.archive")
    choose_file(program, SAVE, copy)
    wait_for(lambda: os.path.exists(copy), "the copy is saved")
    with open(copy, "rb") as saved, open(program.archive_path(), "rb") as archive:
        assert saved.read() == archive.read(), "the copy is the archive"

    program.drag((300, 30), (60, 30))
    wait_for(lambda: len(texts()) == 2, "a note is deleted")
    choose_file(program, OPEN, copy)
    wait_for(lambda: texts()[0] == "Fresh", "the copy brings it back")
    program.tap(*UNDO)
    wait_for(lambda: len(texts()) == 2, "which is taken back")
    program.key("ctrl+z")
    wait_for(lambda: texts()[0] == "Fresh", "and so is the deletion")
    program.quit()


if __name__ == "__main__":
    with tempfile.TemporaryDirectory() as folder:
        write(folder, "--given.md", "Given\n")
        with Program(os.path.abspath(sys.argv[1]), folder, (WIDTH, HEIGHT),
                     arguments=("missing.md", "--", "--given.md")) as started:
            use(started, folder)
