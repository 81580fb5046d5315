import assert from "node:assert/strict";
import { test } from "node:test";
import { setTimeout as sleep } from "node:timers/promises";
import { engine, only } from "./harness/engine.mjs";
import { Site } from "./harness/site.mjs";

const megabyte = 1 << 20;

const site = Site.forEachTest();

// A page of the list's address that runs nothing by itself.
async function openTab() {
    const tab = await site.open(`${site.address}blank.html`);
    await tab.evaluate(async () => {
        globalThis.openStorage = async () => {
            const { openStorage } = await import(new URL("storage.js", location.href).href);
            globalThis.files = await openStorage();
            globalThis.losses = 0;
            files.onLost = () => (losses += 1);
        };
        globalThis.databaseName = `velmorath ${new URL(".", location.href).href}`;
        globalThis.bytesOf = (text) => new TextEncoder().encode(text);
        globalThis.textOf = (path) => {
            const bytes = files.read(path);
            return bytes && new TextDecoder().decode(bytes);
        };
        // Null when it worked.
        globalThis.tryReplacing = (path, text) =>
            files.replace(path, bytesOf(text)).then(() => null, (error) => error.message);
        // Bytes that no database can make shorter, different ones for each number.
        globalThis.noise = (number, length) => {
            const words = new Uint32Array(length / 4).map((_, place) => Math.imul(place, 2654435761) ^ number);
            return new Uint8Array(words.buffer);
        };
        // The number of a file of noise; null when it is not the whole of it.
        globalThis.noiseIn = (path, length) => {
            const bytes = files.read(path);
            const number = new Uint32Array(bytes.buffer, 0, 1)[0];
            const isWhole = bytes.length === length && indexedDB.cmp(bytes, noise(number, length)) === 0;
            return isWhole ? number : null;
        };
    });
    return tab;
}

async function openFiles() {
    const tab = await openTab();
    await tab.evaluate(() => openStorage());
    return tab;
}

// What a page that opens the files now finds in these ones.
async function stored(...paths) {
    const tab = await openFiles();
    const texts = await tab.evaluate((wanted) => wanted.map(textOf), paths);
    await tab.close();
    return texts;
}

async function replace(tab, path, text) {
    return tab.evaluate(([where, what]) => tryReplacing(where, what), [path, text]);
}

// How a page may end; what others' drivers cannot do to the page alone is done to the browser.
const deaths = [() => site.killBrowser(), ...engine === "chromium" ? [(tab) => tab.crash()] : []];

test("whole files of any length come back, under the names they were given", async () => {
    const length = 12 * megabyte;
    const tab = await openFiles();
    const found = await tab.evaluate(async (count) => {
        const long = noise(7, count);
        const written = [files.replace("/long", long), files.replace("/empty", new Uint8Array())];
        long.fill(8);
        await Promise.all(written);
        await files.replace("/note", bytesOf("damaged"));
        files.setAside("/note");
        const isGone = !files.exists("/note") && files.read("/note") === null;
        await files.replace("/note", bytesOf("damaged too"));
        files.setAside("/note");
        files.replace("/note", bytesOf("whole"));
        const wasSettled = files.isSettled;
        await files.settled();
        return { isGone, wasSettled, isSettled: files.isSettled };
    }, length);
    assert.deepEqual(found, { isGone: true, wasSettled: false, isSettled: true });

    const next = await openFiles();
    assert.deepEqual(await next.evaluate((count) => [noiseIn("/long", count), files.read("/empty").length], length), [7, 0]);
    const notes = ["/note", "/note.unreadable", "/note.unreadable-2", "/note.unreadable-3"];
    assert.deepEqual(await stored(...notes), ["whole", "damaged", "damaged too", null]);
});

test("a write that is cut off leaves all the old files or all the new ones, and what was answered is there", async () => {
    const length = 4 * megabyte;
    let before = 0;
    const rounds = engine === "chromium" ? 8 : 4;
    for (let round = 1; round <= rounds; round += 1) {
        const tab = await openFiles();
        const isAnswered = round % 4 > 1;
        await tab.evaluate(async ([number, count, isAwaited]) => {
            const writes = ["/notes", "/settings"].map((path) => files.replace(path, noise(number, count)));
            await (isAwaited ? Promise.all(writes) : null);
        }, [round, length, isAnswered]);
        await sleep(isAnswered ? 0 : round * 5);
        await deaths[round % deaths.length](tab);
        const next = await openFiles();
        const [notes, settings] = await next.evaluate((count) =>
            ["/notes", "/settings"].map((path) => (files.exists(path) ? noiseIn(path, count) : 0)), length);
        assert.equal(notes, settings);
        assert.ok(notes === round || notes === before && !isAnswered, `${notes} after ${before} and ${round}`);
        before = notes;
        await next.close();
    }
});

// WebKit waits for its storage to answer before it sends what is written, and a page that goes away hears no answer;
// Firefox may end it first. What is typed is written before that: see keeping.test.mjs.
const goesAway = only("chromium", "promises a page that goes away its last write");
test("a write that begins when the page goes away gets to the disk", goesAway, async () => {
    for (const [leave, text] of [
        [(tab) => tab.goto("about:blank"), "left"],
        [(tab) => tab.reload(), "reloaded"],
        [(tab) => tab.close(), "closed"],
    ]) {
        const tab = await openFiles();
        await tab.evaluate((words) => {
            files.replace("/before", bytesOf(words));
            addEventListener("pagehide", () => files.replace("/note", bytesOf(words)));
        }, text);
        await leave(tab);
        assert.deepEqual(await stored("/before", "/note"), [text, text]);
    }
});

test("a page that others have replaced writes nothing more and is told so once", async () => {
    const silent = await openFiles();
    const first = await openFiles();
    assert.equal(await replace(first, "/note", "first"), null);
    for (const text of ["second", "third"]) {
        const tab = await openFiles();
        assert.equal(await replace(tab, "/note", text), null);
        assert.match(await replace(first, "/note", "late"), /another page/);
        assert.match(await replace(first, "/other", "late"), /another page/);
        const known = await first.evaluate(() => [textOf("/note"), files.exists("/other"), losses]);
        assert.deepEqual(known, ["first", false, 1]);
        assert.equal(await replace(tab, "/note", `${text} again`), null);
    }
    assert.match(await replace(silent, "/note", "late"), /another page/);
    assert.deepEqual(await stored("/note", "/other"), ["third again", null]);
});

test("a write for which there is no room leaves the old files, and the next one may succeed", only("chromium", "sets a quota"), async () => {
    const tab = await openTab();
    const { origin } = new URL(site.address);
    await tab.command("Storage.overrideQuotaForOrigin", { origin, quotaSize: 4 * megabyte });
    await tab.evaluate(() => openStorage());
    await replace(tab, "/note", "old");
    const found = await tab.evaluate(async (length) => {
        files.setAside("/note");
        const reason = await files.replace("/note", noise(1, length)).catch(({ message }) => message);
        return [reason, textOf("/note"), files.exists("/note.unreadable"), losses];
    }, 12 * megabyte);
    assert.match(found[0], /^Cannot write: .*quota/i);
    assert.deepEqual(found.slice(1), ["old", false, 0]);
    assert.deepEqual(await replace(tab, "/note", "shorter"), null);
    assert.deepEqual(await stored("/note"), ["shorter"]);
});

test("a write carries along what an earlier one that failed should have written", async () => {
    const tab = await openFiles();
    await replace(tab, "/note", "damaged");
    const answers = await tab.evaluate(async () => {
        const { put } = IDBObjectStore.prototype;
        IDBObjectStore.prototype.put = () => {
            IDBObjectStore.prototype.put = put;
            throw new DOMException("full", "QuotaExceededError");
        };
        files.setAside("/note");
        const early = tryReplacing("/note", "one");
        await new Promise((resolve) => queueMicrotask(resolve));
        const late = tryReplacing("/other", "two");
        return [await early, textOf("/note"), textOf("/other"), await late, textOf("/note")];
    });
    assert.deepEqual(answers, ["Cannot write: full", "one", "two", null, "one"]);
    const paths = ["/note", "/note.unreadable", "/other"];
    assert.deepEqual(await stored(...paths), ["one", "damaged", "two"]);
});

test("a database that is deleted under a page is filled again, unless another page was first", only("chromium", "clears a site's data"), async () => {
    const { origin } = new URL(site.address);
    const clear = (tab) => tab.command("Storage.clearDataForOrigin", { origin, storageTypes: "indexeddb" });
    const tab = await openFiles();
    await replace(tab, "/note", "one");
    await clear(tab);
    assert.equal(await replace(tab, "/other", "two"), null);
    await tab.evaluate(() => new Promise((resolve) => {
        indexedDB.deleteDatabase(databaseName).onsuccess = resolve;
    }));
    assert.equal(await replace(tab, "/third", "three"), null);
    assert.deepEqual(await stored("/note", "/other", "/third"), ["one", "two", "three"]);

    const owner = await openFiles();
    await clear(owner);
    const other = await openFiles();
    assert.match(await replace(owner, "/note", "late"), /another page/);
    assert.equal(await replace(other, "/note", "new"), null);
    assert.deepEqual(await stored("/note", "/other"), ["new", null]);
});

test("files that cannot be had are not taken for none", async () => {
    const tab = await openTab();
    const reasons = await tab.evaluate(async () => {
        const reason = () => openStorage().then(() => null, (error) => error.message);
        const descriptor = Object.getOwnPropertyDescriptor(globalThis, "indexedDB");
        Object.defineProperty(globalThis, "indexedDB", { value: undefined, configurable: true });
        const missing = await reason();
        Object.defineProperty(globalThis, "indexedDB", descriptor);
        await new Promise((resolve) => {
            indexedDB.open(databaseName, 1000).onsuccess = (event) => resolve(event.target.result.close());
        });
        return [missing, await reason()];
    });
    assert.match(reasons[0], /^Cannot open the files: /);
    assert.match(reasons[1], /^Cannot open the files: .*version/);
});

test("files that another page keeps locked up are not waited for in vain", async () => {
    const blocker = await openTab();
    await blocker.evaluate(() => new Promise((resolve) => {
        indexedDB.open(databaseName, 1).onsuccess = (event) => {
            globalThis.connection = event.target.result;
            indexedDB.deleteDatabase(databaseName).onblocked = resolve;
        };
    }));
    const tab = await openTab();
    const answer = await tab.evaluate(async () => {
        const { setTimeout: wait } = globalThis;
        globalThis.setTimeout = (action, time) => wait(action, time / 20);
        const { openStorage } = await import(new URL("storage.js", location.href).href);
        return openStorage().then(() => null, (error) => error.message);
    });
    assert.equal(answer, "Cannot open the files: the browser does not answer");
});

// A page that has asked for the list and keeps in `events` what happens to it. It settles at once when asked
// to let go, or never.
async function openHolding({ settles = true } = {}) {
    const tab = await openTab();
    await tab.evaluate(async (canSettle) => {
        const { holdList } = await import(new URL("tab.js", location.href).href);
        globalThis.events = [];
        const onTaken = async () => {
            events.push("asked");
            await new Promise((resolve) => canSettle && setTimeout(resolve, 100));
            events.push("settled");
        };
        globalThis.holding = await holdList({ onTaken, wait: 1500 });
    }, settles);
    return tab;
}

const isHeld = (tab) => tab.evaluate(() => holding.held);
const takeOver = (tab) => tab.evaluate(() => Promise.all([holding.takeOver(), holding.takeOver()]));
const events = (tab) => tab.evaluate(() => events);

test("one page holds the list, and lets go of it when it has settled", async () => {
    const first = await openHolding();
    const second = await openHolding();
    assert.deepEqual([await isHeld(first), await isHeld(second)], [true, false]);
    await takeOver(second);
    assert.deepEqual([await events(first), await events(second)], [["asked", "settled"], []]);
});

test("a page that does not settle, or is frozen, loses the list all the same", only("chromium", "freezes pages"), async () => {
    const first = await openHolding({ settles: false });
    const second = await openHolding();
    await takeOver(second);
    assert.deepEqual(await events(first), ["asked"]);

    await second.evaluate(() => openStorage());
    await second.command("Page.setWebLifecycleState", { state: "frozen" });
    const third = await openHolding();
    await takeOver(third);
    await third.evaluate(() => openStorage());
    assert.equal(await replace(third, "/note", "new"), null);
    await second.command("Page.setWebLifecycleState", { state: "active" });
    await second.until("it has let go", () => events.at(-1) === "settled");
    assert.deepEqual(await events(second), ["asked", "settled"]);
    assert.match(await replace(second, "/note", "late"), /another page/);
    assert.deepEqual(await events(third), []);
    assert.deepEqual(await stored("/note"), ["new"]);
});

test("where the browser cannot tell who holds the list, every page does", async () => {
    site.addScript(() => Object.defineProperty(navigator, "locks", { value: undefined }));
    assert.deepEqual([await isHeld(await openHolding()), await isHeld(await openHolding())], [true, true]);
});
