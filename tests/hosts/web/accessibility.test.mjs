import assert from "node:assert/strict";
import { test } from "node:test";
import { sameEverywhere } from "./harness/engine.mjs";
import { List } from "./harness/list.mjs";
import { Site } from "./harness/site.mjs";

const site = Site.forEachTest();

test("no screen keeps anybody out", sameEverywhere, async () => {
    const list = await List.opened(site);
    for (const step of ["Yes", "Next", "Close", "Information", "Settings", "Theme    :    Red", "Close", "Close",
        "Contact Us", "Message", "Cancel", "Close", "Hello!", "Note", "Close", "Add note", "Information"]) {
        await list.appears(step);
        await list.atRest();
        assert.deepEqual(await list.tab.obstacles(), [], `before "${step}"`);
        await list.press(step);
    }
});

test("the mirror lies over what it stands for", async () => {
    const list = await List.with(site, Array.from({ length: 50 }, (_, number) => `Note ${number}`));
    const { x, y, width, height } = await list.box("Note 2");
    assert.deepEqual({ x, y, width, height }, { x: 0, y: 120, width: 375, height: 60 });
    const place = (name) => list.tab.evaluate((text) => {
        const item = find(text).closest("[role=listitem]");
        return [item.ariaPosInSet, item.ariaSetSize];
    }, name);
    assert.deepEqual(await place("Note 2"), ["3", "50"]);
    await list.tab.drag([200, 500], [200, 80]);
    await list.atRest();
    await list.tab.until("it scrolled", () => document.querySelector("#mirror").textContent.includes("Note 15"));
    assert.deepEqual(await place("Note 12"), ["13", "50"]);
    assert.ok(await list.tab.evaluate(() => document.querySelectorAll("#mirror [role=listitem]").length < 14));
});

test("notes are made, changed and opened with the keys, and the focus tells where they are", async () => {
    const list = await List.with(site, ["One", "Two", "Three"]);
    await list.key("Tab");
    assert.equal(await list.focused(), "One");
    await list.key("ArrowDown");
    assert.equal(await list.focused(), "Two");
    await list.key(" ");
    await list.untilKept("One", "x Two", "Three");
    assert.equal(await list.focused(), "Two, Completed");
    await list.key(" ");
    await list.key("Alt+ArrowDown");
    await list.untilKept("One", "Three", "Two");
    assert.equal(await list.focused(), "Two");
    await list.key("Delete");
    await list.untilKept("One", "Three");
    await list.key("Control+z");
    await list.untilKept("One", "Three", "Two");
    await list.key("Control+Shift+z");
    await list.untilKept("One", "Three");
    assert.equal(await list.focused(), "Three");

    await list.key("n");
    await list.editing();
    await list.type("new, and Delete");
    await list.key("Backspace");
    await list.key("Enter");
    await list.untilKept("new, and Delet", "One", "Three");
    await list.key("ArrowDown");
    assert.equal(await list.focused(), "One");
    await list.key("F2");
    await list.editing();
    await list.type("s");
    await list.key("Escape");
    await list.untilKept("new, and Delet", "Ones", "Three");

    await list.key("Enter");
    assert.deepEqual(await list.said(), ["Close", "Open note", "Save", "Note"]);
    await list.key("Escape");
    assert.equal(await list.focused(), "Ones");
});
