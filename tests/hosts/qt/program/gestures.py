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


def row_middle(row):
    return row * ROW + ROW // 2


BEGINS = "textFieldDidBeginEditing"


def add_by_pulling(program, text):
    program.until_line(BEGINS, lambda: program.drag((200, 100), (200, 330)))
    program.type(text)
    program.key("Return")


def picture(program, name):
    if len(sys.argv) > 2:
        program.screenshot(os.path.join(sys.argv[2], f"{name}.png"))


def first_launch(program):
    time.sleep(1.2)
    picture(program, "first-launch")
    program.tap(WIDTH * 0.32, HEIGHT / 2 + 28)  # No
    time.sleep(0.6)
    assert not os.path.exists(program.archive_path()), "the sample note is not saved before a change"


def adding(program):
    program.drag((200, 100), (200, 190), release=False)
    time.sleep(0.1)
    picture(program, "pull-to-add")
    program.drag((200, 190), (200, 330), release=False, button_down=False)
    time.sleep(0.1)
    picture(program, "release-to-add")
    program.until_line(BEGINS, program.release)
    program.type("Buy milk")
    picture(program, "typing")
    program.key("Return")
    wait_for(lambda: program.texts() == ["Buy milk", "Hello!"], "the new note is on top, and saved")
    today = datetime.datetime.now(datetime.timezone.utc)
    assert program.notes()[0][1] == f"{today:%b} {today.day}, {today.year}", program.notes()[0]
    assert program.notes()[1][1] is None, "a note that was never typed has no date"

    add_by_pulling(program, "Call home")
    wait_for(lambda: len(program.texts()) == 3, "the third note")
    program.until_line(BEGINS, lambda: program.drag((200, 100), (200, 330)))
    program.key("Escape")
    wait_for(lambda: program.texts() == ["Call home", "Buy milk", "Hello!"], "an empty note is not kept")
    time.sleep(0.6)


def swiping(program):
    program.drag((60, row_middle(2)), (350, row_middle(2)), release=False)
    picture(program, "swipe-right")
    program.release()
    wait_for(lambda: program.notes()[2][2] is True, "completed")
    time.sleep(0.4)
    picture(program, "completed")
    program.drag((60, row_middle(2)), (350, row_middle(2)))
    wait_for(lambda: program.notes()[2][2] is False, "reopened")
    time.sleep(0.4)
    before = program.texts()
    program.drag((330, row_middle(2)), (60, row_middle(2)), release=False)
    picture(program, "swipe-left")
    program.release()
    wait_for(lambda: program.texts() == before[:2], "deleted")
    time.sleep(0.6)


def starting_again(program, executable, home):
    before = program.notes()
    program.quit()
    program = Program(executable, home)
    time.sleep(0.5)
    picture(program, "second-start")
    lines = program.lines()
    assert "primo avvio dell app" not in lines
    assert program.notes() == before
    program.drag((60, row_middle(0)), (350, row_middle(0)))
    wait_for(lambda: program.notes()[0][2] is True, "the list works as before")
    program.kill()
    program = Program(executable, home)
    assert program.notes()[0][2] is True, "a kill right after a change loses nothing"
    program.quit()


def main():
    executable = os.path.abspath(sys.argv[1])
    with tempfile.TemporaryDirectory() as home:
        program = Program(executable, home, (WIDTH, HEIGHT))
        try:
            first_launch(program)
            adding(program)
            swiping(program)
            starting_again(program, executable, home)
        finally:
            if program.process.poll() is None:
                program.kill()


if __name__ == "__main__":
    main()
