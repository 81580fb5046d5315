#!/usr/bin/env python3
"""Every gesture of the list, made with the pointer on the real program, the archive read after each.

usage: gestures.py PROGRAM [FOLDER FOR PICTURES]
"""

import datetime
import os
import sys
import tempfile
import time

from window import Program, wait_for

WIDTH, HEIGHT, ROW = 375, 667, 60
BEGINS = "textFieldDidBeginEditing"


def row_middle(row):
    return row * ROW + ROW // 2


def first_launch(program):
    time.sleep(1.2)
    program.picture("first-launch")
    program.tap(WIDTH * 0.32, HEIGHT / 2 + 28)  # No
    time.sleep(0.6)
    assert not os.path.exists(program.archive_path()), "the sample note is not saved before a change"


def adding(program):
    program.drag((200, 100), (200, 190), release=False)
    time.sleep(0.1)
    program.picture("pull-to-add")
    program.drag((200, 190), (200, 330), release=False, button_down=False)
    time.sleep(0.1)
    program.picture("release-to-add")
    program.until_line(BEGINS, program.release)
    program.type("Buy milk")
    program.picture("typing")
    program.key("Return")
    wait_for(lambda: program.texts() == ["Buy milk", "Hello!"], "the new note is on top, and saved")
    today = datetime.datetime.now(datetime.timezone.utc)
    assert program.notes()[0][1] == f"{today:%b} {today.day}, {today.year}", program.notes()[0]
    assert program.notes()[1][1] is None, "a note that was never typed has no date"
    program.add_by_pulling("Call home")
    program.until_line(BEGINS, lambda: program.drag((200, 100), (200, 330)))
    program.key("Escape")
    wait_for(lambda: program.texts() == ["Call home", "Buy milk", "Hello!"], "an empty note is not kept")
    time.sleep(0.6)


def swiping(program):
    def swipe(start, end, name):
        program.drag((start, row_middle(2)), (end, row_middle(2)), release=False)
        program.picture(name)
        program.release()

    for completed in (True, False):
        swipe(60, 350, "swipe-right")
        wait_for(lambda completed=completed: program.notes()[2][2] is completed, f"completed: {completed}")
        time.sleep(0.4)
        program.picture(f"completed-{completed}")
    before = program.texts()
    swipe(330, 60, "swipe-left")
    wait_for(lambda: program.texts() == before[:2], "deleted")
    time.sleep(0.6)


def starting_again(program, executable, home):
    before = program.notes()
    program.quit()
    with Program(executable, home) as program:
        time.sleep(0.5)
        program.picture("second-start")
        assert "primo avvio dell app" not in program.lines()
        assert program.notes() == before
        program.drag((60, row_middle(0)), (350, row_middle(0)))
        wait_for(lambda: program.notes()[0][2] is True, "the list works as before")
        program.kill()
    with Program(executable, home) as program:
        assert program.notes()[0][2] is True, "a kill right after a change loses nothing"
        program.quit()


def main():
    executable = os.path.abspath(sys.argv[1])
    with tempfile.TemporaryDirectory() as home, Program(executable, home, (WIDTH, HEIGHT)) as program:
        first_launch(program)
        adding(program)
        swiping(program)
        starting_again(program, executable, home)


if __name__ == "__main__":
    main()
