import assert from "node:assert/strict";
import { test } from "node:test";
import { setTimeout as sleep } from "node:timers/promises";
import { only, sameEverywhere } from "./harness/engine.mjs";
import { List, rowMiddle } from "./harness/list.mjs";
import { Site } from "./harness/site.mjs";

const site = Site.forEachTest();

const upright = { width: 375, height: 667 };
const lying = { width: 667, height: 375 };

async function turn(list, size) {
    await list.tab.page.setViewport({ ...list.tab.page.viewport(), ...size });
    await list.tab.until("the canvas has the size", ({ width, height }) => {
        const canvas = document.getElementById("screen");
        return canvas.width === Math.round(width * devicePixelRatio)
            && canvas.height === Math.round(height * devicePixelRatio);
    }, size);
    await list.atRest();
}

// Everything that can be pressed, but for actions that have no place, lies on the screen.
async function assertInSight(list) {
    await list.tab.until("everything is in sight", () =>
        Array.from(document.querySelectorAll("#mirror > *, #mirror [role=alertdialog] > *")).every((element) => {
            const { left, top, right, bottom } = element.getBoundingClientRect();
            return left >= 0 && top >= 0 && right < innerWidth + 1 && bottom < innerHeight + 1 && right > left;
        }));
}

for (const scale of [1, 2, 2.625]) {
    test(`with ${scale} pixels to the point, every size is filled, and sharp`, only("chromium", "turns the screen"), async () => {
        await site.changePhone({ deviceScaleFactor: scale });
        const list = await List.with(site, ["One", "Two"]);
        const assertFilled = async ({ width }, y) => {
            const picture = await list.tab.picture();
            const [left, right] = [60, 1].map((distance) => picture.pixel((width - distance) * scale, y * scale));
            // One of them may lie under a light that is dithered.
            assert.ok(left.every((part, place) => Math.abs(part - right[place]) < 3), `${left} and ${right}`);
            assert.ok(Math.max(...left) > 100);
        };
        const assertSharp = async (y) => {
            // From the lower edge of a row to the black below it there is no pixel of another colour.
            const picture = await list.tab.picture();
            const colors = [-1, 0].map((pixel) => picture.pixel(20 * scale, Math.round(y * scale) + pixel));
            assert.ok(Math.max(...colors[0]) > 100 && Math.max(...colors[1]) === 0, `${colors}`);
        };
        for (const size of [lying, upright]) {
            await turn(list, size);
            await assertInSight(list);
            await assertFilled(size, 45);
            if (Number.isInteger(scale)) {
                await assertSharp(120);
            }
        }
        await list.tap([240, rowMiddle(0)]);
        for (const size of [lying, upright]) {
            await turn(list, size);
            await assertInSight(list);
            await assertFilled(size, 5);
        }
    });
}

test("nothing is drawn while nothing changes", sameEverywhere, async () => {
    const list = await List.with(site, ["One", "Two"]);
    const assertIdle = async () => {
        await list.atRest();
        const before = await list.tab.evaluate(() => frames.count);
        await sleep(2000);
        assert.equal(await list.tab.evaluate(() => frames.count), before);
    };
    await assertIdle();
    await list.pull();
    await assertIdle();
});

// By how much two pictures differ inside a rectangle, when the second is moved by some pixels.
function difference(one, other, { x, y, width, height }, dx, dy) {
    let sum = 0;
    for (let row = y; row < y + height; ++row) {
        for (let column = x; column < x + width; ++column) {
            const [red] = one.pixel(column, row);
            const [otherRed] = other.pixel(column + dx, row + dy);
            sum += Math.abs(red - otherRed);
        }
    }
    return sum / (width * height);
}

// That a text which is drawn in one picture is at the same pixels in the other, or so many below.
function assertSamePlace(one, other, area, below = 0) {
    const unmoved = difference(one, other, area, 0, below);
    for (const [dx, dy] of [[0, 1], [0, -1], [1, 0], [-1, 0]]) {
        const moved = difference(one, other, area, dx, below + dy);
        assert.ok(unmoved < moved / 2, `${unmoved}, and ${moved} when moved by ${dx}, ${dy}`);
    }
}

// Before it is there: an engine that blinks it at times shows it until then.
function hideCaret(list) {
    return list.tab.evaluate(() => {
        document.styleSheets[0].insertRule("#editors * { caret-color: transparent !important; }");
    });
}

for (const scale of [1, 2]) {
    test(`with ${scale} pixels to the point, a text does not move when it is edited`, async () => {
        await site.changePhone({ deviceScaleFactor: scale });
        const long = `One\ntwo lines that go\n\n${"on and ".repeat(20)}`;
        const list = await List.with(site, ["Quick fjord, 12", "שלום עולם", long]);
        const area = (x, y, width, height) =>
            ({ x: x * scale, y: y * scale, width: width * scale, height: height * scale });
        await hideCaret(list);
        const drawn = await list.tab.picture();
        await list.tab.tap([30, rowMiddle(0)]);
        await list.editing();
        assertSamePlace(drawn, await list.tab.picture(), area(5, 10, 200, 40));
        await list.key("Enter");
        const drawnFromRight = await list.tab.picture();
        await list.key("Home");
        await list.key("ArrowDown");
        await list.key("F2");
        await list.editing();
        // Its row has slid to the top.
        const editedFromRight = await list.tab.picture();
        assertSamePlace(drawnFromRight, editedFromRight, area(170, 75, 200, 35), -60 * scale);
        await list.key("Enter");

        await list.key("End");
        await list.key("Enter");
        const drawnBelow = await list.tab.picture();
        await list.tab.tap([100, 100]);
        await list.editing();
        assertSamePlace(drawnBelow, await list.tab.picture(), area(10, 66, 340, 110));
    });
}

test("a tap puts the caret where it is, and a long note stays where it was read", async () => {
    const lines = Array.from({ length: 60 }, (_, line) => `Line ${line}`);
    const list = await List.with(site, ["The quick brown fox jumps over the lazy dog again", lines.join("\n")]);
    await hideCaret(list);
    const caretAfterTap = async (place) => {
        await list.tab.tap(place);
        await list.editing();
        const caret = await list.tab.evaluate(() => document.activeElement.selectionStart);
        await list.key("Escape");
        return caret;
    };
    const near = await caretAfterTap([30, rowMiddle(0)]);
    const far = await caretAfterTap([120, rowMiddle(0)]);
    assert.ok(near > 0 && near < 5 && far > near + 5 && far < 25, `${near} and ${far}`);

    await list.tap([340, rowMiddle(1)]);
    await list.tab.drag([180, 550], [180, 150]);
    await list.atRest();
    const area = { x: 20, y: 150, width: 200, height: 1000 };
    const read = await list.tab.picture();
    await list.tab.tap([40, 300]);
    await list.editing();
    const line = await list.tab.evaluate(() => {
        const { value, selectionStart } = document.activeElement;
        return value.slice(0, selectionStart).split("\n").length;
    });
    assert.ok(line > 10 && line < 40, `${line}`);
    // Browsers round what is scrolled to whole points: half a one is a pixel here.
    const assertHardlyMoved = (picture) =>
        assert.ok([-1, 0, 1].some((below) => difference(read, picture, area, 0, below) < 1));
    assertHardlyMoved(await list.tab.picture());
    await list.key("Escape");
    assertHardlyMoved(await list.tab.picture());
});

test("two fingers enlarge what they do nothing else to", only("chromium", "enlarges pages"), async () => {
    const list = await List.with(site, ["One", "Two"]);
    const scale = () => list.tab.evaluate(() => visualViewport.scale);
    const [near, wide] = [[[150, 300], [220, 300]], [[80, 300], [290, 300]]];
    await list.tab.pinch([[180, rowMiddle(0)], [180, rowMiddle(1)]], [[180, 2], [180, 200]]);
    await list.editing();
    await list.key("Escape");
    assert.equal(await scale(), 1);

    await list.tap([240, rowMiddle(0)]);
    await list.tab.pinch(near, wide);
    await list.atRest();
    assert.ok(await scale() > 1.5);
    // What is enlarged becomes smaller again anywhere.
    await list.key("Escape");
    await list.tab.pinch(wide, near);
    await list.atRest();
    assert.equal(await scale(), 1);
    assert.deepEqual(await list.texts(), ["One", "Two"]);

    const other = await site.open(site.address);
    await other.until("it says that the list is open elsewhere", () => !document.getElementById("notice").hidden);
    await other.pinch(near, wide);
    assert.ok(await other.evaluate(() => visualViewport.scale) > 1.5);
});

test("the user's own colours leave the picture alone, and motion is left out where it is not wanted", only("chromium", "sets what a user prefers"), async () => {
    const list = await List.with(site, ["One", "Two"]);
    await list.key("Tab");
    const whole = { x: 0, y: 0, width: 750, height: 1334 };
    const plain = await list.tab.picture();
    await list.tab.command("Emulation.setEmulatedMedia", { features: [{ name: "forced-colors", value: "active" }] });
    assert.equal(difference(plain, await list.tab.picture(), whole, 0, 0), 0);

    // How many pictures it takes to open a note and to close it.
    const looks = async () => {
        await list.tab.evaluate(() => {
            const context = document.getElementById("screen").getContext("2d");
            globalThis.seen = new Set();
            frames.onFrame = () => seen.add(context.getImageData(40, 0, 1, context.canvas.height).data.join());
        });
        await list.key("Enter");
        await list.key("Escape");
        return list.tab.evaluate(() => seen.size);
    };
    assert.ok(await looks() > 4);
    await list.tab.command("Emulation.setEmulatedMedia", { features: [{ name: "prefers-reduced-motion", value: "reduce" }] });
    // The list, the note, and for a moment the list without its ring.
    assert.ok(await looks() < 4);
});
