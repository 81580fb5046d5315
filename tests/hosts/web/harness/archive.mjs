import { Reference, read, write } from "./propertyList.mjs";

/** The page's files. */
export const paths = {
    notes: "/velmorath/Documents/noteSalvate.archive",
    settings: "/velmorath/defaults.plist",
};

const noteClass = "_TtC9Velmorath9ToDoItem2";

/** The notes of an archive, top first, each with `text`, `date` and `completed`. */
export function notesIn(bytes) {
    const { $objects: objects, $top: top } = read(bytes);
    const follow = (value) => {
        const found = value instanceof Reference ? objects[value.number] : value;
        return found === "$null" ? null : found;
    };
    return follow(top.root)["NS.objects"].map(follow).map((note) => {
        const { $classname: name } = follow(note.$class);
        if (name !== noteClass) {
            throw new Error(`A ${name} is no note`);
        }
        return { text: follow(note.text), date: follow(note.data), completed: follow(note.completed) };
    });
}

/** An archive of such notes; a mere text is an open note without a date. */
export function archiveOf(notes) {
    const objects = ["$null"];
    const add = (value) => new Reference(objects.push(value) - 1);
    const addText = (text) => (typeof text === "string" ? add(text) : new Reference(0));
    const addClass = (name) => add({ $classname: name, $classes: [name, "NSObject"] });
    const $class = addClass(noteClass);
    const records = notes
        .map((note) => (typeof note === "string" ? { text: note } : note))
        .map(({ text, date, completed = false }) =>
            add({ text: addText(text), data: addText(date), completed, $class }));
    const root = add({ "NS.objects": records, $class: addClass("NSArray") });
    return write({ $version: 100000, $archiver: "NSKeyedArchiver", $top: { root }, $objects: objects });
}

/** The settings of somebody who has had the program for some time, but for these changes. */
export function settingsOf(changes = {}) {
    return write({
        HasLaunchedOnce: true,
        primoAvvioApp7: "No",
        nuovaNota: "No",
        settaggi: { appIconBadge: "true", soundEffect: "true", vibration: "true", theme: "Blue", ...changes },
    });
}

/** What the page was set to, by name. */
export function settingsIn(bytes) {
    return read(bytes).settaggi;
}
