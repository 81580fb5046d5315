import assert from "node:assert/strict";
import { after, before, test } from "node:test";
import { Helper } from "./harness/helper.mjs";
import { List } from "./harness/list.mjs";
import { Site } from "./harness/site.mjs";
import { until } from "./harness/until.mjs";

// The reader is there before the browser, which otherwise tells it nothing.
let reader;
before(async () => {
    reader = new Helper("reader.py");
    await reader.ask("things");
});
after(() => reader.stop());
const site = Site.forEachTest({ args: ["--force-renderer-accessibility"] });
let list;
let kept;

// Runs in the page, before everything: keeps what is said, and the mails that are handed over.
function listen() {
    globalThis.heard = [];
    globalThis.mails = [];
    const observer = new MutationObserver((changes) =>
        changes.forEach(({ addedNodes }) => addedNodes.forEach((node) => heard.push(node.textContent))));
    addEventListener("DOMContentLoaded", () => {
        const region = document.querySelector("[aria-live=polite]");
        if (region) {
            observer.observe(region, { childList: true });
        }
    });
    HTMLAnchorElement.prototype.click = function press() {
        mails.push(this.href);
    };
}

async function begin(open) {
    site.addScript(listen);
    list = await open(site);
}

// Does something, and then: the keys are there (the reader knows a place by its name), this was said, and the screen
// is called so where it is another one.
async function then(deed, focus, { heard = [], keeps = kept, title } = {}) {
    await deed();
    await list.atRest();
    kept = keeps;
    await until(`the keys are at ${focus}`, async () => {
        const found = (await reader.ask("focused"))?.replace(/, \w+ \d+, \d{4}/, "");
        return found === focus || found;
    });
    await list.untilKept(...kept);
    assert.deepEqual(await list.tab.evaluate(() => globalThis.heard.splice(0)), heard);
    if (title) {
        assert.equal(await list.tab.evaluate(() => document.title), title);
    }
}

const press = (name) => () => reader.ask("press", { name });
const type = (text) => () => list.type(text);
const key = (name) => () => list.tab.key(name);
// From the menu of a row.
const choose = (name, action) => async () => {
    await press(`Actions: ${name}`)();
    await press(action)();
};

test("presses alone do everything to notes, and everybody knows what happened and where", async () => {
    await begin((at) => List.with(at, ["One", "Two"]));
    await then(() => {}, "Notes", { keeps: ["One", "Two"], title: "Velmorath" });
    await then(press("Add note"), "Note");
    await then(type("New"), "Note");
    await then(key("Enter"), "New", { keeps: ["New", "One", "Two"] });

    await then(choose("New", "Complete"), "New, Completed", { heard: ["Completed, New"], keeps: ["x New", "One", "Two"] });
    // The key that did it, once more: it opens the note and does nothing to it.
    await then(key("Enter"), "Completed note", { title: "Note – Velmorath" });
    await then(press("Close"), "New, Completed", { title: "Velmorath" });
    await then(choose("New", "Move down"), "New, Completed", { heard: ["Moved to 2 of 3"], keeps: ["One", "x New", "Two"] });
    await then(choose("One", "Insert below"), "Note");
    await then(type("Below"), "Note");
    await then(key("Enter"), "Below", { keeps: ["One", "Below", "x New", "Two"] });
    await then(choose("One", "Delete"), "Below", { heard: ["Deleted, One"], keeps: ["Below", "x New", "Two"] });
    await then(press("Undo: Delete One"), "One", { heard: ["Undone, Delete One"], keeps: ["One", "Below", "x New", "Two"] });

    await then(press("Two"), "Open note", { title: "Note – Velmorath" });
    await then(press("Note"), "Note");
    await then(type(" halves"), "Note");
    await then(press("Save"), "Two halves",
        { heard: ["Saved"], keeps: ["One", "Below", "x New", "Two halves"], title: "Velmorath" });
    await then(() => list.reload(), "Notes");
});

test("a row is one stop, its menu opens from keys and presses, and closes to where it was", async () => {
    await begin((at) => List.with(at, ["One", "Two"]));
    await then(() => {}, "Notes", { keeps: ["One", "Two"] });
    const names = (await reader.ask("things")).map(([, name]) => name);
    assert.deepEqual(names, ["Velmorath", "Velmorath", "Notes", "One", "Actions: One", "Two", "Actions: Two",
        "Reorder notes", "Add note", "Share", "Information"]);
    await then(key("ArrowDown"), "One");
    await then(key("Shift+F10"), "Edit");
    await then(key("ArrowUp"), "Move down");
    assert.deepEqual(await list.tab.obstacles(), []);
    await then(key("Home"), "Edit");
    await then(key("Escape"), "One");
    await then(() => reader.ask("show_menu", { name: "Two" }), "Edit");
    await then(key("ArrowDown"), "Complete");
    await then(key("Enter"), "Two, Completed", { heard: ["Completed, Two"], keeps: ["One", "x Two"] });
    await then(press("Actions: Two"), "Reopen");
    await then(() => list.tab.tap([30, 400]), "Two, Completed");

    // A letter means something where the notes are and nowhere else.
    await then(key("Shift+N"), "Note");
    await then(type("Below"), "Note");
    await then(key("Enter"), "Below", { keeps: ["One", "x Two", "Below"] });
    await then(() => reader.ask("focus", { name: "Information" }), "Information");
    await then(key("n"), "Information");
    await then(key("Enter"), "Velmorath", { title: "Information – Velmorath" });
    await then(key("Escape"), "Information", { title: "Velmorath" });
});

test("presses alone go through every screen and dialog", async () => {
    await begin(List.opened);
    await list.appears("Yes");
    await then(() => {}, "Watch tutorial", { keeps: [] });
    await then(press("Yes"), "Pull the list down to add a note. Swipe a note to the right to complete it, to the left to "
        + "delete it. The keys are Control+N (N on a web page), Space and Delete. F2 edits a note, Enter opens it.",
    { title: "Tutorial – Velmorath" });
    await then(press("Next"), "Close", { heard: ["Pull two notes apart to insert a note between them. The keys are "
        + "Control+Shift+N (Shift+N on a web page). Alt+Up and Alt+Down move a note."] });
    await then(press("Close"), "Notes", { title: "Velmorath" });

    await then(press("Information"), "Velmorath", { title: "Information – Velmorath" });
    await then(press("Settings"), "Settings", { title: "Settings – Velmorath" });
    await then(press("Sound effect"), "Sound effect, Off");
    await then(press("Theme : Red"), "Select theme", { title: "Theme – Velmorath" });
    await then(press("Violet"), "Violet");
    assert.equal(await list.tab.evaluate(() => find("Violet").ariaChecked), "true");
    await then(press("Close"), "Theme : Violet", { title: "Settings – Velmorath" });
    await then(press("Close"), "Settings", { title: "Information – Velmorath" });
    await then(press("Contact Us"), "Cancel", { title: "Message – Velmorath" });
    await then(press("Message"), "Message");
    await then(type("Hello"), "Message");
    await then(press("Send"), "Contact Us");
    await then(press("Close"), "Information");
    const [mail] = await list.tab.evaluate(() => globalThis.mails);
    assert.match(new URL(mail).searchParams.get("body"), /Hello$/);
    const { theme, soundEffect } = await list.settings();
    assert.deepEqual({ theme, soundEffect }, { theme: "Violet", soundEffect: "false" });
});
