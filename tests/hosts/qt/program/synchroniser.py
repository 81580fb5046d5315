#!/usr/bin/env python3
"""Does to the archive of a running program what a synchroniser does, and what two machines do to each other.

usage: synchroniser.py PROGRAM
"""

import tempfile
import time

from window import BEGINS, Program, archive, archive_exchange, run

ROW_SHOWN = "tableView(tableView:"


def archive_of(texts):
    """As other programs write it. A text that begins with "x " is a completed note."""
    with tempfile.NamedTemporaryFile() as file:
        archive_exchange.write(file.name, [(text.removeprefix("x "), None, text.startswith("x ")) for text in texts])
        return file.read()


def put(place, texts):
    """Writes beside, not at once, and gives the file its name when it is whole."""
    place.parent.mkdir(parents=True, exist_ok=True)
    beside = place.with_name(f".syncthing.{place.name}.tmp")
    whole = archive_of(texts)
    with open(beside, "wb", buffering=0) as file:
        file.write(whole[:40])
        time.sleep(0.5)
        file.write(whole[40:])
    beside.rename(place)


def use(home):
    notes = archive(home)
    conflict = notes.with_name("noteSalvate.sync-conflict-20261123-120000-ABCDEFG.archive")
    put(notes, ["Milk", "Bread"])
    with Program(home) as program:
        program.decline_tutorial()
        program.until_line(ROW_SHOWN, lambda: put(notes, ["Eggs", "Milk", "x Bread"]))
        program.swipe(0, 1)
        program.wait_for_texts(["x Eggs", "Milk", "x Bread"], "the other machine's note is on the screen")
        program.until_line(ROW_SHOWN, lambda: notes.write_bytes(archive_of(["x Eggs", "Milk", "x Bread", "Salt"])))
        program.swipe(3, 1)
        program.wait_for_texts(["x Eggs", "Milk", "x Bread", "x Salt"], "a file that is written in place is read")

        program.until_line(BEGINS, lambda: program.key("Insert"))
        program.type("Tea")
        put(notes, ["x Eggs", "x Salt", "Oat milk"])
        time.sleep(1)
        program.until_line(ROW_SHOWN, lambda: program.write(" leaves"))
        merged = ["Tea leaves", "x Eggs", "x Salt"]
        program.wait_for_texts([*merged, "Oat milk"], "what was typed is there, and what came meanwhile")
        time.sleep(2)
        program.swipe(3, 1)
        program.wait_for_texts([*merged, "x Oat milk"], "the screen shows it, too")

        put(conflict, ["x Eggs", "Rice"])
        program.wait_for_texts(["Rice", *merged], "a conflict's note is on top")
        assert sorted(notes.parent.iterdir()) == [notes, conflict.with_name(f"{conflict.name}.merged")]
        program.undo()
        program.wait_for_texts(merged, "which is taken back")
        program.quit()

    put(conflict, ["Beans"])
    with Program(home) as program:
        program.wait_for_texts(["Beans", *merged], "one that waited is taken at the start")
        program.quit()


run(use)
