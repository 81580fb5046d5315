import assert from "node:assert/strict";
import { readFile } from "node:fs/promises";
import { test } from "node:test";
import { archiveOf, notesIn } from "./harness/archive.mjs";
import { List } from "./harness/list.mjs";
import { Site } from "./harness/site.mjs";

const site = Site.forEachTest();

async function choose(list, what) {
    await list.tapOn("Share");
    await list.tapOn(what);
}

test("a copy is downloaded, and opened it brings back what is missing", async () => {
    const list = await List.with(site, ["One", { text: "Two", completed: true }]);
    const downloading = list.page.waitForEvent("download");
    await choose(list, "Save a copy");
    const download = await downloading;
    assert.match(download.suggestedFilename(), /^velmorath-\d{4}-\d\d-\d\d\.archive$/);
    const copy = await readFile(await download.path());
    assert.deepEqual(notesIn(copy).map(({ text }) => text), ["One", "Two"]);

    const open = async (buffer) => {
        const choosing = list.page.waitForEvent("filechooser");
        await choose(list, "Open a copy");
        await (await choosing).setFiles({ name: "copy", mimeType: "", buffer });
    };
    await open(archiveOf(["New", "One"]));
    await list.untilKept("New", "One", "x Two");
    await open(Buffer.from("- [x] Two\n- [ ] Newer\n  with a second line\n"));
    await list.untilKept("Newer\nwith a second line", "New", "One", "x Two");
    await list.tab.key("Control+z");
    await list.untilKept("New", "One", "x Two");
    await open(Buffer.from([0xff, 0]));
    await list.tapOn("OK");
    await list.untilKept("New", "One", "x Two");

    const drop = async (...texts) => {
        const dataTransfer = await list.page.evaluateHandle((contents) => {
            const dragged = new DataTransfer();
            contents.forEach((text) => dragged.items.add(new File([text], "list.txt")));
            return dragged;
        }, texts);
        await list.page.dispatchEvent("body", "drop", { dataTransfer });
    };
    await list.tapOn("Information");
    await drop("First\n", "Second\n");
    await list.tapOn("Close");
    await list.untilKept("Second", "First", "New", "One", "x Two");
    await list.page.evaluate(() => {
        File.prototype.arrayBuffer = () => Promise.reject(new DOMException("gone", "NotReadableError"));
    });
    await drop("Third\n");
    await list.tab.until("it is told", () => document.body.textContent.includes("The file cannot be read."));
    await list.tapOn("OK");
    await list.untilKept("Second", "First", "New", "One", "x Two");
});

test("the list is shared as a text, or put on the clipboard", async () => {
    site.phone.addScript(() => {
        globalThis.shared = [];
        navigator.share = async ({ text }) => shared.push([text, navigator.userActivation.isActive]);
    });
    await site.phone.context.grantPermissions(["clipboard-read", "clipboard-write"]);
    const list = await List.with(site, ["One", { text: "Two\nlines", completed: true }]);
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
