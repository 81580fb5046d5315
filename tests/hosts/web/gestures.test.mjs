import assert from "node:assert/strict";
import { test } from "node:test";
import { only } from "./harness/engine.mjs";
import { List, rowMiddle } from "./harness/list.mjs";
import { Site } from "./harness/site.mjs";

const site = Site.forEachTest();
let list;

async function begin(...notes) {
    list = await List.with(site, notes);
}

test("pulling the list down makes a note", async () => {
    await begin("One");
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

test("pinching two rows apart makes a note between them", async () => {
    await begin("One", "Two");
    await list.tab.pinch([[180, rowMiddle(0)], [180, rowMiddle(1)]], [[180, 2], [180, 200]]);
    await list.editing();
    await list.type("Between");
    await list.key("Enter");
    await list.untilKept("One", "Between", "Two");
});

const isEditing = () => list.tab.evaluate(() => document.querySelector("#editors input, #editors textarea") !== null);

async function goBackThroughEverything(goBack) {
    await begin("One", "Two");
    const back = async () => {
        await goBack();
        await list.atRest();
    };
    const openNote = () => list.tap([240, rowMiddle(0)]);
    await openNote();
    await back();
    assert.equal((await list.said())[0], "One");

    await openNote();
    await list.tab.tap([100, 200]);
    await list.editing();
    await list.type(" and\nmore");
    await back();
    assert.ok(!await isEditing());
    await back();
    assert.deepEqual((await list.said()).slice(0, 2), ["Close", "Open note"]);
    await list.tapOn("Save");
    await list.untilKept("One and\nmore", "Two");

    await list.pull();
    await list.type("Three");
    await back();
    await list.untilKept("Three", "One and\nmore", "Two");
    assert.ok(!await isEditing());

    await list.tapOn("Information");
    await list.tapOn("Settings");
    await back();
    assert.ok((await list.said()).includes("Settings"));
    await back();
    assert.equal((await list.said())[0], "Three");
}

test("the browser's way back ends what is typed, closes what is open, and then leaves", async () => {
    site.addScript(() => delete globalThis.CloseWatcher);
    const hasEntry = (isThere) => (history.state !== null) === isThere;
    await goBackThroughEverything(async () => {
        await list.tab.until("there is a way back", hasEntry, true);
        await list.tab.back();
    });
    // What has been closed otherwise is not in the way.
    await list.tap([240, rowMiddle(0)]);
    await list.tapOn("Close");
    await list.tab.until("only the page is to be left", hasEntry, false);
    await list.tab.back();
    await list.tab.until("the page is left", () => location.href.endsWith("/blank.html"));
});

test("a gesture that the browser tells of does the same", only("chromium", "makes such a gesture"), async () => {
    // The Escape key is a desktop's back gesture where the page has no use for it.
    site.addScript(() => {
        for (const name of ["keydown", "keyup"]) {
            addEventListener(name, (event) => event.key === "Escape" && event.stopImmediatePropagation(), true);
        }
    });
    await goBackThroughEverything(() => list.tab.key("Escape"));
});
