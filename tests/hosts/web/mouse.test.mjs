import assert from "node:assert/strict";
import { beforeEach, test } from "node:test";
import { List, rowMiddle } from "./harness/list.mjs";
import { Site } from "./harness/site.mjs";

const desktop = { width: 1200, height: 800, deviceScaleFactor: 1, isMobile: false, hasTouch: false };

const site = Site.forEachTest(desktop);
let list;
let mouse;

// What drives the browser presses a button without the pressure that real ones have.
function givePressure() {
    Object.defineProperty(PointerEvent.prototype, "pressure", {
        get() {
            return this.buttons > 0 ? 0.5 : 0;
        },
    });
}

beforeEach(async () => {
    site.addScript(givePressure);
    list = await List.with(site, ["One", "Two", "Three"]);
    mouse = list.tab.page.mouse;
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
    await list.tab.page.keyboard.down("Control");
    await drag([400, 60], [400, 140]);
    await list.tab.page.keyboard.up("Control");
    await list.editing();
    await list.type("between");
    await list.key("Enter");
    await list.untilKept("One", "between", "x Two", "Three");
});

test("a touchpad pinches two rows apart, although the cursor is on one", async () => {
    await mouse.move(400, rowMiddle(1) - 10);
    await list.tab.page.keyboard.down("Control");
    for (let step = 0; step < 14; ++step) {
        await mouse.wheel({ deltaY: -12 });
    }
    await list.tab.page.keyboard.up("Control");
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

test("in a row line breaks are copied, cut and pasted as such, and a word is dragged to another place", async () => {
    await list.tab.command("Browser.grantPermissions", { permissions: ["clipboardReadWrite", "clipboardSanitizedWrite"] });
    const edit = async () => {
        await mouse.click(40, rowMiddle(0));
        await list.editing();
        await list.key("Control+a");
    };
    await edit();
    await list.tab.evaluate(() => navigator.clipboard.writeText("One\r\nsecond line\n"));
    await list.key("Control+v");
    await list.key("Enter");
    await list.untilKept("One\nsecond line", "Two", "Three");
    await edit();
    await list.tab.evaluate(() => navigator.clipboard.writeText(""));
    await list.key("Control+c");
    const copied = () => list.tab.evaluate(() => navigator.clipboard.readText());
    assert.equal(await copied(), "One\nsecond line");
    await list.key("Control+x");
    assert.equal((await list.edited()).value, "");
    await list.key("Control+v");
    await list.key("Control+v");
    await list.key("Enter");
    await list.untilKept("One\nsecond lineOne\nsecond line", "Two", "Three");

    await edit();
    await list.type("front back");
    await mouse.click(40, rowMiddle(0), { count: 2 });
    await mouse.down();
    await mouse.move(60, rowMiddle(0), { steps: 3 });
    await mouse.move(300, rowMiddle(0), { steps: 5 });
    await mouse.up();
    await list.tab.until("it was moved", () => /^ ?back ?front ?$/.test(document.activeElement.value));
    await list.key("Enter");
    await list.tab.until("it is kept", () => document.querySelector("#editors input") === null);
    assert.match((await list.texts())[0], /^ ?back ?front ?$/);
});
