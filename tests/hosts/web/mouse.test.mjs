import assert from "node:assert/strict";
import { beforeEach, test } from "node:test";
import { List, rowMiddle } from "./harness/list.mjs";
import { Site } from "./harness/site.mjs";

const desktop = { viewport: { width: 1200, height: 800 }, deviceScaleFactor: 1, isMobile: false, hasTouch: false };

const site = Site.forEachTest(desktop);
let list;
let mouse;

beforeEach(async () => {
    list = await List.with(site, ["One", "Two", "Three"]);
    mouse = list.page.mouse;
});

async function drag([fromX, fromY], [toX, toY]) {
    await mouse.move(fromX, fromY);
    await mouse.down();
    await mouse.move(toX, toY, { steps: 15 });
    await mouse.up();
}

test("a mouse swipes, and with Ctrl it is two fingers", async () => {
    await drag([100, rowMiddle(1)], [900, rowMiddle(1)]);
    await list.untilKept("One", "x Two", "Three");
    await list.atRest();
    await list.page.keyboard.down("Control");
    await drag([400, 60], [400, 140]);
    await list.page.keyboard.up("Control");
    await list.editing();
    await list.type("between");
    await list.key("Enter");
    await list.untilKept("One", "between", "x Two", "Three");
});

test("a touchpad pinches two rows apart, although the cursor is on one", async () => {
    await mouse.move(400, rowMiddle(1) - 10);
    await list.page.keyboard.down("Control");
    for (let step = 0; step < 14; ++step) {
        await mouse.wheel(0, -12);
    }
    await list.page.keyboard.up("Control");
    await list.editing();
    await list.type("pinched");
    await list.key("Enter");
    await list.tab.until("it is over", () => document.querySelector("#editors input") === null);
    await list.atRest();
    assert.deepEqual((await list.texts()).filter((text) => text !== "pinched"), ["One", "Two", "Three"]);
    assert.equal((await list.texts()).length, 4);
});

test("no button leaves a finger behind", async () => {
    await mouse.move(600, 500);
    await mouse.down();
    await mouse.down({ button: "right" });
    await mouse.up();
    await mouse.up({ button: "right" });
    await mouse.move(600, 600, { steps: 10 });
    await drag([100, rowMiddle(2)], [900, rowMiddle(2)]);
    await list.untilKept("One", "Two", "x Three");
});
