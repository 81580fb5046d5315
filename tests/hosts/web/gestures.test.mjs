import assert from "node:assert/strict";
import { test } from "node:test";
import { setTimeout as sleep } from "node:timers/promises";
import { only, sameEverywhere } from "./harness/engine.mjs";
import { List, rowMiddle } from "./harness/list.mjs";
import { Site } from "./harness/site.mjs";

const site = Site.forEachTest();
let list;

async function begin(...notes) {
    list = await List.with(site, notes);
}

const isGreen = ([red, green, blue]) => green > 1.5 * red && green > 1.5 * blue;

test("the first launch asks once, shows the tutorial, and has a note to try things on", sameEverywhere, async () => {
    list = await List.first(site);
    await list.appears("Yes");
    await list.atRest();
    assert.deepEqual(await list.said(), ["Watch tutorial", "No", "Yes"]);
    await list.tapOn("Yes");
    await list.tab.flick([300, 300], [80, 300]);
    await list.atRest();
    assert.ok((await list.said()).includes("Page 2 of 2"));
    await list.tab.flick([80, 300], [300, 300]);
    await list.atRest();
    assert.ok((await list.said()).includes("Page 1 of 2"));
    await list.tapOn("Next");
    assert.ok((await list.said()).includes("Page 2 of 2"));
    await list.tapOn("Close");
    assert.deepEqual(await list.said(), ["Hello!", "Reorder notes", "Add note", "Share", "Information"]);

    await list.swipe(0, 60, 350);
    await list.untilKept("x Hello!");
    await list.untilSaid("☢️☢️☢️☢️☢️☢️☢️ mostroPubblicità", () => list.reload());
    await sleep(1500);
    assert.equal((await list.said())[0], "Hello!, Completed");
    assert.ok(!(await list.said()).includes("Yes"));
});

test("pulling the list down makes a note, if it goes deep enough", async () => {
    await begin("One");
    await list.tab.press([[200, 100]]);
    await list.tab.move([[200, 170]]);
    await list.tab.release();
    await list.atRest();
    assert.equal((await list.said())[0], "One");

    await list.tab.press([[200, 100]]);
    await list.tab.move([[200, 330]]);
    // A phone shows its keyboard only for what gets the focus inside the touch.
    await list.tab.evaluate(() => addEventListener("touchend", () => {
        globalThis.focusedInTouch = document.activeElement.localName;
    }, { once: true }));
    await list.untilSaid("textFieldDidBeginEditing", () => list.tab.release());
    assert.equal(await list.tab.evaluate(() => globalThis.focusedInTouch), "input");
    assert.deepEqual(await list.edited(), { kind: "input", label: "Note", value: "" });
    await list.atRest();
    await list.type("Buy <b>milk</b> & 🥛");
    await list.tab.key("Enter");
    await list.untilKept("Buy <b>milk</b> & 🥛", "One");
    const today = new Intl.DateTimeFormat("en-US", { dateStyle: "medium", timeZone: "UTC" }).format();
    assert.deepEqual((await list.notes()).map(({ date }) => date), [today, null]);
    assert.deepEqual(await list.tab.texts("#mirror b"), []);

    await list.pull();
    await list.tab.key("Escape");
    await list.atRest();
    assert.deepEqual((await list.said()).slice(0, 3), ["Buy <b>milk</b> & 🥛", "One", "Reorder notes"]);
});

test("what an input method still holds is kept when the editing ends", only("chromium", "plays an input method"), async () => {
    await begin("One");
    await list.pull();
    await list.tab.command("Input.imeSetComposition", { text: "にほん", selectionStart: 3, selectionEnd: 3 });
    await list.tab.tap([30, rowMiddle(1)]);
    await list.untilKept("にほん", "One");
    await list.editing();
    await list.key("Enter");

    await list.pull();
    await list.type("a");
    await list.tab.command("Input.imeSetComposition", { text: "ね", selectionStart: 1, selectionEnd: 1 });
    // The keyboard is put away.
    await list.tab.evaluate(() => document.activeElement.blur());
    await list.untilKept("aね", "にほん", "One");

    await list.pull();
    await list.tab.command("Input.imeSetComposition", { text: "はん", selectionStart: 2, selectionEnd: 2 });
    await list.tab.hide();
    await list.tab.show();
    await list.untilKept("はん", "aね", "にほん", "One");
});

test("swiping completes, reopens and deletes, and only a long way does", async () => {
    await begin("One", "Two", "Three");
    const open = await list.rowColor(1);
    await list.tab.press([[60, rowMiddle(1)]]);
    await list.tab.move([[350, rowMiddle(1)]]);
    await list.tab.release();
    await list.untilKept("One", "x Two", "Three");
    assert.ok(isGreen(await list.rowColor(1, "completed")));
    await list.swipe(1, 60, 350);
    await list.untilKept("One", "Two", "Three");
    assert.deepEqual(await list.rowColor(1), open);

    const lines = list.lines.length;
    await list.swipe(0, 200, 80);
    await list.swipe(0, 100, 240);
    await list.tab.drag([100, rowMiddle(0)], [220, rowMiddle(2)]);
    await list.atRest();
    assert.ok(!list.lines.slice(lines).includes("ArchiveResults"));
    assert.deepEqual(await list.texts(), ["One", "Two", "Three"]);

    await list.tab.press([[330, rowMiddle(0)]]);
    await list.tab.move([[60, rowMiddle(0)]]);
    await list.tab.release();
    await list.untilKept("Two", "Three");
});

test("pinching two rows apart makes a note between them, unless the fingers come back", async () => {
    await begin("One", "Two");
    const rows = [[180, rowMiddle(0)], [180, rowMiddle(1)]];
    await list.tab.press(rows);
    await list.tab.move([[180, 10], [180, rowMiddle(1) + 60]]);
    await list.tab.move([[180, rowMiddle(0) - 20], [180, rowMiddle(1) + 20]]);
    await list.tab.release();
    await list.atRest();
    assert.deepEqual(await list.said(), ["One", "Two", "Reorder notes", "Add note", "Share", "Information"]);

    await list.tab.pinch(rows, [[180, 2], [180, 200]]);
    await list.editing();
    await list.type("Between");
    await list.key("Enter");
    await list.untilKept("One", "Between", "Two");
});

test("a note is read and written on a screen of its own", async () => {
    await begin("One", "Two");
    await list.tap([240, rowMiddle(1)]);
    assert.deepEqual(await list.said(), ["Close", "Open note", "Save", "Note"]);
    await list.tab.tap([100, 200]);
    await list.editing();
    assert.deepEqual(await list.edited(), { kind: "textarea", label: "Note", value: "Two" });
    await list.type(" and\n\nmore");
    await list.tapOn("Save");
    await list.untilKept("One", "Two and\n\nmore");

    await list.tap([240, rowMiddle(0)]);
    await list.tab.tap([100, 200]);
    await list.editing();
    await list.type(" not to be kept");
    await list.tapOn("Close");
    assert.equal((await list.said())[0], "One");
    assert.deepEqual(await list.texts(), ["One", "Two and\n\nmore"]);
});
