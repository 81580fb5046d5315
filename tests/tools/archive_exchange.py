#!/usr/bin/env python3
"""Python's own property-list module as the judge of the keyed archives that the program writes and reads.

    archive_exchange.py ARCHIVE COPY    writes the notes of an archive again, as others do
"""
import plistlib
import sys

CLASS_NAME = "_TtC9Velmorath9ToDoItem2"


def read(path):
    """The notes: [text, date, completed] each."""
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


def write(path, notes, as_others=True):
    """As the program itself would, or as others may, too."""
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
        if as_others and number % 2 and not completed:
            del note["completed"]
        if as_others and number % 2 and date is None:
            del note["data"]
        uids.append(add(note))
    objects[1] = {"NS.objects": uids, "$class": add_class("NSMutableArray" if as_others else "NSArray")}
    archive = {"$version": 100000, "$archiver": "NSKeyedArchiver", "$top": {"root": plistlib.UID(1)},
               "$objects": objects}
    with open(path, "wb") as file:
        plistlib.dump(archive, file, fmt=plistlib.FMT_BINARY)


if __name__ == "__main__":
    write(sys.argv[2], read(sys.argv[1]))
