import assert from "node:assert/strict";
import { test } from "node:test";
import { only } from "./harness/engine.mjs";
import { List, rowMiddle } from "./harness/list.mjs";
import { Site } from "./harness/site.mjs";

const site = Site.forEachTest();

// Runs in the page, before everything.
function withoutWatchers() {
    delete globalThis.CloseWatcher;
}

// The Escape key is a desktop's back gesture where the page has no use for it.
function keepEscapeFromThePage() {
    for (const name of ["keydown", "keyup"]) {
        addEventListener(name, (event) => event.key === "Escape" && event.stopImmediatePropagation(), true);
    }
}

const isEditing = (list) => list.tab.evaluate(() => document.querySelector("#editors input, #editors textarea") !== null);

async function goBackThroughEverything(script, goBack) {
    site.addScript(script);
    const list = await List.with(site, ["One", "Two"]);
    const back = async () => {
        await goBack(list);
        await list.atRest();
    };
    const openNote = () => list.tap([240, rowMiddle(0)]);
    await openNote();
    await back();
    assert.equal((await list.said())[0], "One");

    await openNote();
    await list.tab.tap([100, 200]);
    await list.editing();
    await list.type(" more");
    await back();
    assert.ok(!await isEditing(list));
    await back();
    assert.deepEqual((await list.said()).slice(0, 2), ["Close", "Open note"]);
    await list.tapOn("Save");
    await list.untilKept("One more", "Two");

    await list.pull();
    await list.type("Three");
    await back();
    await list.untilKept("Three", "One more", "Two");
    assert.ok(!await isEditing(list));

    await list.tapOn("Information");
    await list.tapOn("Settings");
    await back();
    assert.ok((await list.said()).includes("Settings"));
    await back();
    assert.equal((await list.said())[0], "Three");
    return list;
}

test("the browser's way back ends what is typed, closes what is open, and then leaves", async () => {
    const hasEntry = (isThere) => (history.state !== null) === isThere;
    const list = await goBackThroughEverything(withoutWatchers, async ({ tab }) => {
        await tab.until("there is a way back", hasEntry, true);
        await tab.back();
    });
    // What has been closed otherwise is not in the way.
    await list.tap([240, rowMiddle(0)]);
    await list.tapOn("Close");
    await list.tab.until("only the page is to be left", hasEntry, false);
    await list.tab.back();
    await list.tab.until("the page is left", () => location.href.endsWith("/blank.html"));
});

test("a gesture that the browser tells of does the same", only("chromium", "makes such a gesture"), async () => {
    await goBackThroughEverything(keepEscapeFromThePage, ({ tab }) => tab.key("Escape"));
});
