#!/usr/bin/env python3
"""Python's own property-list module as the judge of the keyed archives that the program writes and reads.

    archive_exchange.py show ARCHIVE    the notes of an archive, as JSON: [[text, date, completed], ...]
    archive_exchange.py write ARCHIVE   an archive of the notes that come as such JSON on standard input
    archive_exchange.py settings FILE   the values of a settings file, as JSON
"""
import json
import plistlib
import sys

CLASS_NAME = "_TtC9Velmorath9ToDoItem2"


def show(path):
    with open(path, "rb") as file:
        archive = plistlib.load(file)
    objects = archive["$objects"]
    assert archive["$version"] == 100000 and archive["$archiver"] == "NSKeyedArchiver"
    assert objects[0] == "$null"

    def follow(uid):
        assert isinstance(uid, plistlib.UID)
        return None if uid.data == 0 else objects[uid.data]

    def check_class(record, name):
        assert follow(record["$class"]) == {"$classname": name, "$classes": [name, "NSObject"]}

    root = follow(archive["$top"]["root"])
    check_class(root, "NSArray")
    notes = []
    for uid in root["NS.objects"]:
        note = follow(uid)
        check_class(note, CLASS_NAME)
        assert set(note) == {"text", "data", "completed", "$class"}
        assert isinstance(note["completed"], bool)
        notes.append([follow(note["text"]), follow(note["data"]), note["completed"]])
    return notes


def write(path, notes):
    objects = ["$null", None]

    def add(value):
        objects.append(value)
        return plistlib.UID(len(objects) - 1)

    def add_class(name):
        return add({"$classname": name, "$classes": [name, "NSObject"]})

    note_class = add_class(CLASS_NAME)
    uids = []
    for number, (text, date, completed) in enumerate(notes):
        note = {"$class": note_class, "completed": completed}
        for key, value in (("text", text), ("data", date)):
            note[key] = plistlib.UID(0) if value is None else add(value)
        # An entry that is missing, null or false means the same.
        if number % 2 and not completed:
            del note["completed"]
        if number % 2 and date is None:
            del note["data"]
        uids.append(add(note))
    objects[1] = {"NS.objects": uids, "$class": add_class("NSMutableArray")}
    archive = {"$version": 100000, "$archiver": "NSKeyedArchiver", "$top": {"root": plistlib.UID(1)},
               "$objects": objects}
    with open(path, "wb") as file:
        plistlib.dump(archive, file, fmt=plistlib.FMT_BINARY)


def main():
    command, path = sys.argv[1:]
    if command == "show":
        print(json.dumps(show(path), ensure_ascii=False))
    elif command == "write":
        write(path, json.load(sys.stdin))
    elif command == "settings":
        with open(path, "rb") as file:
            print(json.dumps(plistlib.load(file), ensure_ascii=False, sort_keys=True))


if __name__ == "__main__":
    main()
