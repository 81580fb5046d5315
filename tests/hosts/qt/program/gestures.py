#!/usr/bin/env python3
"""The list's gestures, made with the pointer on the real program, the archive read after each.

usage: gestures.py PROGRAM
"""

import datetime
import time

from window import BEGINS, HEIGHT, WIDTH, Program, archive, archive_exchange, run


def first_launch(program):
    time.sleep(1.2)
    program.picture("first-launch")
    program.tap(WIDTH * 0.32, HEIGHT / 2 + 28)  # No
    time.sleep(0.6)
    assert not archive(program.home).exists(), "the sample note is not saved before a change"


def adding(program):
    program.drag((200, 100), (200, 190), release=False)
    time.sleep(0.1)
    program.picture("pull-to-add")
    program.drag((200, 190), (200, 330), release=False, button_down=False)
    time.sleep(0.1)
    program.picture("release-to-add")
    program.until_line(BEGINS, program.release)
    program.write("Buy milk")
    program.wait_for_texts(["Buy milk", "Hello!"], "the new note is on top, and saved")
    dates = [date for _, date, _ in archive_exchange.read(archive(program.home))]
    today = datetime.datetime.now(datetime.timezone.utc)
    assert dates == [f"{today:%b} {today.day}, {today.year}", None], "a note that was never typed has no date"
    program.add_by_pulling("Call home")
    program.until_line(BEGINS, lambda: program.drag((200, 100), (200, 330)))
    program.key("Escape")
    program.wait_for_texts(["Call home", "Buy milk", "Hello!"], "an empty note is not kept")
    time.sleep(0.6)


def swiping(program):
    for way, end, name in ((1, ["x Hello!"], "complete"), (1, ["Hello!"], "reopen"), (-1, [], "delete")):
        program.swipe(2, way, release=False)
        program.picture(name)
        program.release()
        program.wait_for_texts(["Call home", "Buy milk", *end], name)
        time.sleep(0.6)
    assert len(program.texts()) == 2


def starting_again(home):
    with Program(home) as program:
        program.picture("second-start")
        assert "primo avvio dell app" not in program.lines()
        program.swipe(0, 1)
        program.wait_for_texts(["x Call home", "Buy milk"], "the list works as before")
        program.kill()
    with Program(home) as program:
        assert program.texts() == ["x Call home", "Buy milk"], "a kill right after a change loses nothing"
        program.quit()


def use(home):
    with Program(home) as program:
        first_launch(program)
        adding(program)
        swiping(program)
        program.quit()
    starting_again(home)


run(use)
