import assert from "node:assert/strict";
import { cp } from "node:fs/promises";
import { join } from "node:path";
import { test } from "node:test";
import { archiveOf, paths, usualSettings } from "./harness/formats.mjs";
import { List } from "./harness/list.mjs";
import { Site } from "./harness/site.mjs";

const site = Site.forEachTest();

// The page once more, in another folder of the same server.
async function openOtherFolder() {
    await cp(site.server.folder, join(site.server.root, "other"), { recursive: true });
    const list = await List.inNewTab(site);
    list.address = new URL("/other/", site.address).href;
    await list.open();
    return list;
}

// A page of a version for which a site had one list: it has that open, and what is typed there goes into it when it is
// asked to finish. `next` is the number of the owner that it would not let write.
async function openFormer(notes, typed) {
    const tab = await site.open(`${site.address}blank.html`);
    const files = await Promise.all([usualSettings(), archiveOf(notes), archiveOf([typed, ...notes])]);
    await tab.evaluate(async ([names, ...encoded]) => {
        const [settings, before, after] = await Promise.all(encoded.map(async (text) =>
            new Uint8Array(await (await fetch(`data:;base64,${text}`)).arrayBuffer())));
        const opening = indexedDB.open("velmorath", 1);
        opening.onupgradeneeded = () => {
            opening.result.createObjectStore("owners").put(true, 7);
            const store = opening.result.createObjectStore("files");
            store.put(settings, names.settings);
            store.put(before, names.notes);
        };
        await new Promise((resolve) => {
            opening.onsuccess = resolve;
        });
        globalThis.write = () => new Promise((resolve) => {
            const transaction = opening.result.transaction(["owners", "files"], "readwrite");
            transaction.objectStore("owners").add(true, 8);
            transaction.objectStore("owners").delete(8);
            transaction.objectStore("files").put(after, names.notes);
            transaction.oncomplete = () => resolve(true);
            transaction.onabort = () => resolve(false);
        });
        await new Promise((isHeld) => {
            navigator.locks.request("velmorath", () => {
                isHeld();
                return new Promise((release) => {
                    new BroadcastChannel("velmorath").onmessage = async () => release(await globalThis.write());
                });
            });
        });
    }, [paths, ...files.map((bytes) => bytes.toString("base64"))]);
    return tab;
}

test("two folders of a site are two lists, which can be open at once", async () => {
    const one = await List.with(site, ["One"]);
    const other = await openOtherFolder();
    await other.tapOn("No");
    await other.add("Other");
    await one.tab.show();
    await one.swipe(0, 60, 350);
    await one.untilKept("x One");
    await other.untilKept("Other", "Hello!");
});

test("the list that a site had is taken along by the folder that is opened first, whole, and by it alone", async () => {
    const former = await openFormer(["One"], "Two");
    const list = await List.opened(site);
    assert.deepEqual(await list.texts(), ["Two", "One"]);
    assert.equal(await former.evaluate(() => globalThis.write()), false);
    await list.add("Three");
    await list.untilKept("Three", "Two", "One");
    await list.reload();
    assert.deepEqual(await list.texts(), ["Three", "Two", "One"]);
    const other = await openOtherFolder();
    assert.deepEqual(await other.texts(), []);
});

test("a page that never had another list leaves nothing behind for one", async () => {
    const list = await List.with(site, ["One"]);
    // WebKit goes on to name a database that was not made.
    const names = await list.tab.evaluate(async () => (await indexedDB.databases())
        .filter(({ version }) => version > 0).map(({ name }) => name));
    assert.deepEqual(names, [`velmorath ${site.address}`]);
});
