#!/usr/bin/env python3
"""Does to the archive of a running program what a synchroniser does, and what two machines do to each other.

usage: synchroniser.py PROGRAM
"""

import os
import sys
import tempfile
import time

sys.path.append(os.path.join(os.path.dirname(os.path.abspath(__file__)), "../../../tools"))
import archive_exchange
from window import Program, wait_for

WIDTH, HEIGHT = 375, 667
UNDO = (84, HEIGHT - 28)
ROW_SHOWN = "tableView(tableView:"


def archive_of(texts):
    """As other programs write it. A text that begins with "x " is a completed note."""
    with tempfile.NamedTemporaryFile() as file:
        archive_exchange.write(file.name, [(text.removeprefix("x "), None, text.startswith("x ")) for text in texts])
        return file.read()


class Folder:
    """The folder with the notes, as the synchroniser has it."""

    def __init__(self, home):
        self.path = os.path.join(home, ".local/share/velmorath/Documents")
        os.makedirs(self.path)

    def put(self, texts, name="noteSalvate.archive"):
        """Writes beside, not at once, and gives the file its name when it is whole."""
        beside = os.path.join(self.path, f".syncthing.{name}.tmp")
        whole = archive_of(texts)
        with open(beside, "wb") as file:
            file.write(whole[:40])
            file.flush()
            time.sleep(0.5)
            file.write(whole[40:])
        os.replace(beside, os.path.join(self.path, name))

    def overwrite(self, texts):
        with open(os.path.join(self.path, "noteSalvate.archive"), "wb") as file:
            file.write(archive_of(texts))

    def names(self):
        return sorted(os.listdir(self.path))


def start(home):
    program = Program(sys.argv[1], home, (WIDTH, HEIGHT))
    program.decline_tutorial()
    return program


def complete(program, row):
    program.drag((60, 60 * row + 30), (300, 60 * row + 30))


def main():
    with tempfile.TemporaryDirectory() as home:
        folder = Folder(home)
        folder.put(["Milk", "Bread"])
        program = start(home)

        program.until_line(ROW_SHOWN, lambda: folder.put(["Eggs", "Milk", "x Bread"]))
        complete(program, 0)
        wait_for(lambda: program.marked_texts() == ["x Eggs", "Milk", "x Bread"], "the other machine's note is on the screen")
        program.until_line(ROW_SHOWN, lambda: folder.overwrite(["x Eggs", "Milk", "x Bread", "Salt"]))
        complete(program, 3)
        wait_for(lambda: program.marked_texts()[3] == "x Salt", "a file that is written in place is read as well")

        program.key("Insert")
        time.sleep(0.5)
        program.type("Tea")
        folder.put(["x Eggs", "x Salt", "Oat milk"])
        time.sleep(1)
        program.type(" leaves")
        program.until_line(ROW_SHOWN, lambda: program.key("Return"))
        wait_for(lambda: program.marked_texts() == ["Tea leaves", "x Eggs", "x Salt", "Oat milk"],
                 "what was typed is there, and what came meanwhile")
        time.sleep(2)
        complete(program, 3)
        wait_for(lambda: program.marked_texts()[3] == "x Oat milk", "the screen shows it, too")

        conflict = "noteSalvate.sync-conflict-20261123-120000-ABCDEFG.archive"
        folder.put(["x Eggs", "Rice"], conflict)
        wait_for(lambda: program.marked_texts()[0] == "Rice", "a conflict's note is on top")
        assert folder.names() == ["noteSalvate.archive", f"{conflict}.merged"], folder.names()
        program.tap(*UNDO)
        wait_for(lambda: program.marked_texts()[0] == "Tea leaves", "which is taken back")
        program.quit()

        folder.put(["Beans"], conflict)
        program = start(home)
        wait_for(lambda: program.marked_texts()[:2] == ["Beans", "Tea leaves"], "one that waited is taken at the start")
        program.quit()


if __name__ == "__main__":
    main()
