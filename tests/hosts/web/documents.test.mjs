import assert from "node:assert/strict";
import { mkdir, readdir, readFile, writeFile } from "node:fs/promises";
import { join } from "node:path";
import { test } from "node:test";
import { archiveOf, notesIn, paths } from "./harness/formats.mjs";
import { List } from "./harness/list.mjs";
import { Site } from "./harness/site.mjs";
import { until } from "./harness/until.mjs";

const site = Site.forEachTest();

async function choose(list, what) {
    await list.tapOn("Share");
    await list.tapOn(what);
}

test("a copy is downloaded, and opened it brings back what is missing", async () => {
    const list = await List.with(site, ["One", { text: "Two", completed: true }]);
    const folder = join(site.server.root, "copies");
    await mkdir(folder);
    await list.tab.command("Browser.setDownloadBehavior", { behavior: "allow", downloadPath: folder });
    await choose(list, "Save a copy");
    await until("it is there", async () => /^velmorath-\d{4}-\d\d-\d\d\.archive$/.test(await readdir(folder)));
    const copy = await notesIn(await readFile(join(folder, ...await readdir(folder))));
    assert.deepEqual(copy.map(({ text }) => text), ["One", "Two"]);

    const fileOf = async (bytes, name = "copy") => {
        await writeFile(join(folder, name), bytes);
        return join(folder, name);
    };
    const open = async (bytes) => {
        const choosing = list.tab.page.waitForFileChooser();
        await choose(list, "Open a copy");
        await (await choosing).accept([await fileOf(bytes)]);
    };
    await open(await archiveOf(["New", "One"]));
    await list.untilKept("New", "One", "x Two");
    await open(Buffer.from([0xff, 0]));
    await list.tapOn("OK");
    await list.untilKept("New", "One", "x Two");

    const drop = async (...texts) => {
        const files = await Promise.all(texts.map((text, place) => fileOf(text, `${place}.txt`)));
        for (const type of ["dragEnter", "dragOver", "drop"]) {
            const data = { items: [], files, dragOperationsMask: 1 };
            await list.tab.command("Input.dispatchDragEvent", { type, x: 100, y: 300, data });
        }
    };
    await list.tapOn("Information");
    await drop("First\n", "Second\n");
    await list.tapOn("Close");
    await list.untilKept("Second", "First", "New", "One", "x Two");
    await list.tab.evaluate(() => {
        File.prototype.arrayBuffer = () => Promise.reject(new DOMException("gone", "NotReadableError"));
    });
    await drop("Third\n");
    await list.tab.until("it is told", () => document.body.textContent.includes("The file cannot be read."));
    await list.tapOn("OK");
    await list.untilKept("Second", "First", "New", "One", "x Two");
});

test("the list is shared as a text, or put on the clipboard", async () => {
    site.addScript(() => {
        globalThis.shared = [];
        navigator.share = async ({ text }) => shared.push([text, navigator.userActivation.isActive]);
    });
    const list = await List.with(site, ["One", { text: "Two\nlines", completed: true }]);
    await list.tab.command("Browser.grantPermissions", { permissions: ["clipboardReadWrite", "clipboardSanitizedWrite"] });
    const text = "- [ ] One\n- [x] Two\n  lines\n";
    await choose(list, "Share list");
    assert.deepEqual(await list.tab.evaluate(() => shared), [[text, true]]);

    await list.tab.evaluate(() => {
        navigator.share = undefined;
    });
    await choose(list, "Share list");
    await list.tapOn("OK");
    assert.equal(await list.tab.evaluate(() => navigator.clipboard.readText()), text);
});

test("the same notes are the same bytes as on every other machine", async () => {
    const bytes = await readFile(new URL("../../model/many-notes.archive", import.meta.url));
    const notes = await notesIn(bytes);
    assert.equal(notes.length, 260);
    const list = await List.over(site, bytes);
    await list.open();
    for (const completed of [true, false]) {
        await list.untilSaid("Success writing to file!", () => list.swipe(0, 60, 350));
        assert.equal((await list.notes())[0].completed, completed);
        await list.atRest();
    }
    assert.ok(bytes.equals(await list.kept(paths.notes)));
});

test("a hundred thousand notes are opened, scrolled, and changed in their middle", async () => {
    const count = 100000;
    const notes = Array.from({ length: count }, (_, number) => `Note ${number}`);
    const list = await List.with(site, notes);
    await list.tab.flick([200, 560], [200, 100]);
    await list.atRest();
    assert.notEqual((await list.said())[0], "Note 0");
    // Far away from both ends, as with a wheel that turns very fast.
    await list.tab.page.mouse.move(200, 300);
    await list.tab.page.mouse.wheel({ deltaY: count / 2 * 60 });
    await list.atRest();
    const [place, y] = await list.tab.evaluate(() => {
        const item = document.querySelectorAll("#mirror [role=listitem]")[3];
        const { top, height } = item.getBoundingClientRect();
        return [Number(item.ariaPosInSet), top + height / 2];
    });
    assert.ok(place > 1000 && place < count - 1000);
    await list.untilSaid("Success writing to file!", () =>
        list.tab.drag([60, y], [350, y]));
    await list.atRest();
    const kept = await list.notes();
    assert.equal(kept.length, count);
    assert.deepEqual(kept.filter(({ completed }) => completed).map(({ text }) => text), [`Note ${place - 1}`]);
});
