import assert from "node:assert/strict";
import { readFile } from "node:fs/promises";
import { test } from "node:test";
import { only, sameEverywhere } from "./harness/engine.mjs";
import { paths } from "./harness/formats.mjs";
import { List, rowMiddle } from "./harness/list.mjs";
import { Site } from "./harness/site.mjs";

const site = Site.forEachTest();

const strangeArchives = new URL("../../fuzz/corpus/fuzz-archive/", import.meta.url);

const begin = (...notes) => List.with(site, notes);

async function killAndOpen() {
    await site.killBrowser();
    return List.opened(site);
}

const notice = (list) => list.tab.texts("#notice").then((texts) => texts.join());
const hasNotice = () => !document.getElementById("notice").hidden;

// Waits for the frame in which a place of the canvas gets another colour, one that is meant, and no longer.
async function untilPainted(list, [x, y], isMeant, action) {
    const watch = (across, down, passes) => {
        const context = document.getElementById("screen").getContext("2d");
        const look = () => Array.from(
            context.getImageData(across * devicePixelRatio, down * devicePixelRatio, 1, 1).data.slice(0, 3));
        const before = look().join();
        frames.onFrame = () => {
            const color = look();
            if (color.join() !== before && passes(color)) {
                console.log("It is painted");
                frames.onFrame = () => {};
            }
        };
    };
    await list.tab.evaluate(new Function(`(${watch})(${x}, ${y}, ${isMeant})`));
    await list.untilSaid("It is painted", action);
}

// As if the disk were slow: whatever is written, much more is written with it.
function slowDown() {
    const { put } = IDBObjectStore.prototype;
    IDBObjectStore.prototype.put = function putWithBallast(...what) {
        if (this.name === "files") {
            const ballast = new Uint32Array(6e6).map((_, place) => Math.imul(place, 2654435761));
            put.call(this, new Uint8Array(ballast.buffer), "/ballast");
        }
        return put.apply(this, what);
    };
}

test("what a frame has shown is there after the browser was killed", async () => {
    const isGreen = ([red, green, blue]) => green > 2 * red && green > 2 * blue;
    const isBlack = ([red, green, blue]) => red + green + blue === 0;
    let list = await begin("One", "Two");
    await list.tab.evaluate(slowDown);
    await list.tab.press([[60, rowMiddle(0)]]);
    await list.tab.move([[350, rowMiddle(0)]]);
    await untilPainted(list, [300, 30], isGreen, () => list.tab.release());
    list = await killAndOpen();
    assert.deepEqual((await list.said()).slice(0, 2), ["One, Completed", "Two"]);

    await list.tab.evaluate(slowDown);
    await list.tab.press([[350, rowMiddle(0)]]);
    await list.tab.move([[60, rowMiddle(0)]]);
    await untilPainted(list, [300, 90], isBlack, () => list.tab.release());
    list = await killAndOpen();
    assert.equal((await list.said())[0], "Two");

    await list.tab.evaluate(slowDown);
    await list.pull();
    await list.type("Three");
    await list.atRest();
    // The other row lights up again.
    await untilPainted(list, [300, 90], () => true, () => list.tab.key("Enter"));
    list = await killAndOpen();
    assert.deepEqual(await list.texts(), ["Three", "Two"]);
});

test("what is typed is kept when the page goes out of sight, and when it is reloaded", async () => {
    let list = await begin("One");
    await list.pull();
    await list.type("Half a tho");
    await list.tab.hide();
    await list.tab.show();
    await list.untilKept("Half a tho", "One");
    list = await killAndOpen();
    await list.pull();
    await list.type("Half a wo");
    await list.reload();
    assert.deepEqual(await list.texts(), ["Half a wo", "Half a tho", "One"]);
});

const remark = (list) => list.tab.texts("#remarks").then((texts) => texts.join());
const hasRemark = (isThere) => (document.querySelector("#remarks p") !== null) === isThere;
const complaint = "Unable to write to file!";
const complaints = (list) => list.lines.filter((line) => line === complaint).length;

function fill() {
    const { put } = IDBObjectStore.prototype;
    globalThis.refusals = 0;
    IDBObjectStore.prototype.put = () => {
        ++globalThis.refusals;
        throw new DOMException("full", "QuotaExceededError");
    };
    globalThis.makeRoom = () => {
        IDBObjectStore.prototype.put = put;
    };
}

test("a storage that is full for a while loses nothing that is on the screen, and is told until it has room", sameEverywhere, async () => {
    const list = await begin("One", "Two");
    await list.tab.evaluate(fill);
    await list.untilSaid(complaint, () => list.swipe(0, 60, 350));
    assert.match(await remark(list), /not saved/);
    await list.atRest();
    assert.deepEqual((await list.said()).slice(0, 2), ["One, Completed", "Two"]);
    assert.deepEqual(await list.texts(), ["One", "Two"]);
    assert.deepEqual(await list.tab.obstacles(), []);
    await list.tab.until("it was tried again", () => globalThis.refusals > 1);
    assert.match(await remark(list), /not saved/);
    await list.tab.evaluate(() => globalThis.makeRoom());
    await list.tab.until("it is saved", hasRemark, false);
    await list.untilKept("x One", "Two");
    assert.equal(complaints(list), 1);

    await list.tab.evaluate(fill);
    await list.untilSaid(complaint, () => list.swipe(1, 60, 350));
    await list.tab.evaluate(() => globalThis.makeRoom());
    await list.add("Three");
    await list.untilKept("Three", "x One", "x Two");
    assert.ok(await list.tab.evaluate(hasRemark, false));
});

test("a storage that does not answer holds nothing up for long, and gets what it missed", sameEverywhere, async () => {
    const list = await begin("One", "Two");
    await list.tab.evaluate((name) => new Promise((resolve) => {
        indexedDB.open(name).onsuccess = ({ target: { result: database } }) => {
            const store = database.transaction("files", "readwrite").objectStore("files");
            const goOn = () => {
                if (globalThis.mayAnswer) {
                    database.close();
                } else {
                    store.count().onsuccess = goOn;
                }
                resolve();
            };
            goOn();
        };
    }), `velmorath ${site.address}`);
    await list.tab.drag([60, rowMiddle(0)], [350, rowMiddle(0)]);
    await list.tab.until("it is told", hasRemark, true);
    await list.appears("One, Completed");
    await list.tab.evaluate(() => {
        globalThis.mayAnswer = true;
    });
    await list.tab.until("it is saved", hasRemark, false);
    await list.untilKept("x One", "Two");
    assert.equal(complaints(list), 1);
});

test("what could not be saved is asked about before the page goes, and said when the list is taken away", only("chromium", "answers a page that asks before it goes"), async () => {
    const first = await begin("One");
    await first.tab.evaluate(fill);
    await first.untilSaid(complaint, () => first.swipe(0, 60, 350));
    const asked = new Promise((resolve) => first.tab.page.once("dialog", resolve));
    const closing = first.tab.page.close({ runBeforeUnload: true });
    assert.equal((await asked).type(), "beforeunload");
    await (await asked).dismiss();
    await closing;
    const second = await List.opened(site);
    await second.tab.tapOn("#notice button");
    await second.appears("One");
    await first.tab.until("it is said", () => document.getElementById("notice").textContent.includes("could not be saved"));
    assert.ok(await first.tab.evaluate(() => !document.getElementById("remarks").checkVisibility()));
});

test("a storage that cannot be opened is not an empty list", sameEverywhere, async () => {
    site.addScript(() => {
        IDBFactory.prototype.open = () => {
            throw new DOMException("denied", "SecurityError");
        };
    });
    const list = await List.opened(site);
    await list.tab.until("it is said", hasNotice);
    assert.match(await notice(list), /Cannot open the files: denied/);
    assert.deepEqual(await list.tab.texts("#mirror *"), []);
    assert.deepEqual(await list.tab.obstacles(), []);
});

test("a second tab takes the list over, with what was typed in the first", async () => {
    const first = await begin("One");
    await first.pull();
    await first.type("Two");
    const second = await List.opened(site);
    await second.tab.until("it is said", hasNotice);
    await second.tab.tapOn("#notice button");
    await second.appears("One");
    await second.atRest();
    assert.deepEqual(await second.texts(), ["Two", "One"]);
    await first.tab.until("it is said there", hasNotice);

    await first.tab.show();
    await first.tab.drag([60, rowMiddle(0)], [350, rowMiddle(0)]);
    await first.tab.key("n");
    await second.tab.show();
    await second.swipe(1, 60, 350);
    await second.untilKept("Two", "x One");
    await second.tab.close();

    await first.tab.show();
    await first.tab.tapOn("#notice button");
    await first.appears("One, Completed");
});

test("a picture that is lost while the page is out of sight is painted again", async () => {
    const list = await begin("One");
    await list.tab.hide();
    await list.tab.evaluate(() => {
        const context = document.getElementById("screen").getContext("2d");
        context.setTransform(1, 0, 0, 1, 0, 0);
        context.clearRect(0, 0, context.canvas.width, context.canvas.height);
    });
    await list.tab.show();
    await list.tab.until("the row is there again", () => {
        const [red, green, blue] = document.getElementById("screen").getContext("2d").getImageData(20, 60, 1, 1).data;
        return red + green + blue > 100;
    });
});

test("references longer than the page's numbers are an error here as in the window", sameEverywhere, async () => {
    const list = await List.over(site, await readFile(new URL("references-beyond-32-bits.archive", strangeArchives)));
    await list.open();
    assert.deepEqual(await list.tab.texts("#mirror [role=listitem]"), []);
    assert.equal(list.lines.filter((line) => line.startsWith("error : ")).length, 1);
});

test("a list that the program does not understand is left alone, and the page says so", sameEverywhere, async () => {
    const strange = await readFile(new URL("text.archive", strangeArchives));
    const list = await List.over(site, strange);
    await list.tab.goto(site.address);
    await list.tab.until("it is said", hasNotice);
    assert.match(await notice(list), /root/);
    assert.deepEqual(await list.tab.obstacles(), []);
    await list.tab.tap([100, 100]);
    await list.tab.key("n");
    assert.deepEqual(await list.kept(paths.notes), strange);
    site.faults.length = 0;
});

test("where the browser may clear it, it is said once that the list can be copied", sameEverywhere, async () => {
    site.addScript(() => {
        globalThis.asks = 0;
        navigator.storage.persisted = async () => false;
        navigator.storage.persist = async () => {
            ++globalThis.asks;
            return false;
        };
    });
    const list = await List.opened(site, { isStranger: true });
    await list.tapOn("No");
    assert.deepEqual(await list.tab.evaluate(() => [globalThis.asks, document.querySelector("#remarks p")]), [0, null]);
    await list.add("One");
    await list.tab.until("it is said", hasRemark, true);
    assert.match(await remark(list), /copy.*home screen/);
    await list.atRest();
    assert.deepEqual(await list.tab.obstacles(), []);
    await list.add("Two");
    assert.equal(await list.tab.evaluate(() => document.querySelectorAll("#remarks p").length), 1);
    await list.tab.tapOn("#remarks button");
    await list.atRest();
    assert.ok(await list.tab.evaluate(hasRemark, false));
    await list.tab.close();

    const again = await List.opened(site, { isStranger: true });
    await again.add("Three");
    await again.untilKept("Three", "Two", "One", "Hello!");
    assert.deepEqual(await again.tab.evaluate(() => [globalThis.asks, document.querySelector("#remarks p")]), [0, null]);
});
