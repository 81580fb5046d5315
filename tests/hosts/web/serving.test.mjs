import assert from "node:assert/strict";
import { cp, readFile, writeFile } from "node:fs/promises";
import { join } from "node:path";
import { test } from "node:test";
import { archiveOf } from "./harness/formats.mjs";
import { List } from "./harness/list.mjs";
import { Site } from "./harness/site.mjs";

const site = Site.forEachTest();

test("the server sends with every answer what it is said that servers should, but for what needs https", async () => {
    const text = await readFile(new URL("../../../docs/serving.md", import.meta.url), "utf8");
    const wanted = Array.from(text.matchAll(/^\| `([\w-]+)` \| `(.*?)` \|/gm), ([, name, value]) => [name, value]);
    const forHttps = wanted.pop();
    assert.equal(forHttps[0], "Strict-Transport-Security");
    assert.equal(wanted.length, 7);
    for (const [name, value] of [...wanted, forHttps]) {
        assert.ok(text.includes(`add_header ${name} "${value}" always;`), name);
    }
    for (const file of ["", "sw.js", "velmorath.wasm", "nothing"]) {
        const { headers } = await fetch(site.address + file);
        for (const [name, value] of wanted) {
            assert.equal(headers.get(name), value, `${name} of ${file}`);
        }
    }
});

test("nothing but the module is made code while the page runs, and no other page can show it inside itself", async () => {
    const tab = await site.open(site.address);
    const policy = await tab.evaluate(() => document.querySelector("meta[http-equiv=Content-Security-Policy]").content);
    assert.deepEqual(policy.match(/[\w-]*unsafe[\w-]*/g), ["wasm-unsafe-eval"]);
    const refused = await tab.evaluate(() => Promise.all([
        () => (document.createElement("p").innerHTML = "<b>x</b>"),
        () => (document.createElement("script").src = "main.js"),
        () => navigator.serviceWorker.register("main.js"),
        () => globalThis.trustedTypes.createPolicy("other", {}),
    ].map(async (action) => {
        try {
            await action();
            return "nothing";
        } catch (error) {
            return error.name;
        }
    })));
    assert.deepEqual(refused, Array.from(refused, () => "TypeError"));
    await tab.until("the worker has the page", () => navigator.serviceWorker.controller !== null);

    await writeFile(join(site.server.root, "frame.html"), "<!doctype html><link rel=icon href=data:,>");
    await tab.goto(new URL("/frame.html", site.address).href);
    await tab.evaluate((address) => {
        const frame = document.createElement("iframe");
        frame.src = address;
        document.body.append(frame);
    }, site.address);
    await tab.until("it is refused", () => frames[0] !== undefined && (() => {
        try {
            return frames[0].document === null;
        } catch {
            return true;
        }
    })());
    site.faults.length = 0;
});

test("each folder is an app of its own", async () => {
    await cp(site.server.folder, join(site.server.root, "other"), { recursive: true });
    for (const address of [site.address, new URL("/other/", site.address).href]) {
        const tab = await site.open(address);
        assert.equal((await tab.command("Page.getAppId")).appId, address);
        assert.deepEqual((await tab.command("Page.getAppManifest")).errors, []);
    }
});

const begin = async (query, ...notes) => {
    const list = await List.over(site, await archiveOf(notes));
    list.address += query;
    await list.tab.page.evaluateOnNewDocument(() => {
        const setConsumer = (use) => {
            use({ targetURL: location.href, files: [] });
            globalThis.launch = use;
        };
        Object.defineProperty(globalThis, "launchQueue", { value: { setConsumer } });
    });
    await list.open();
    return list;
};

test("a shortcut opens a new note, also in a page that is open, but not again with a reload", async () => {
    const list = await begin("?add", "One");
    await list.editing();
    await list.type("Two");
    await list.key("Enter");
    await list.untilKept("Two", "One");
    assert.equal(list.tab.page.url(), site.address);
    await list.tapOn("Information");
    await list.tab.evaluate(() => launch({ targetURL: `${location.href}?add` }));
    await list.atRest();
    await list.tapOn("Close");
    await list.editing();
    await list.type("Three");
    await list.key("Enter");
    await list.untilKept("Three", "Two", "One");
});

test("shared texts and opened files are added as copies are", async () => {
    const list = await begin(`?${new URLSearchParams({ text: "Milk\nBread\n" })}`, "Bread");
    await list.untilKept("Milk", "Bread");
    await list.tab.evaluate((query) => launch({ targetURL: `${location.href}?${query}` }),
        `${new URLSearchParams({ title: "A page", text: "", url: "https://velmorath.example/" })}`);
    await list.untilKept("A page\nhttps://velmorath.example/", "Milk", "Bread");
    await list.tab.evaluate(() => launch({
        targetURL: location.href,
        files: [
            { getFile: () => Promise.resolve(new File(["- [x] Done\n"], "list.md")) },
            { getFile: () => Promise.reject(new Error("gone")) },
        ],
    }));
    await list.tapOn("OK");
    await list.untilKept("x Done", "A page\nhttps://velmorath.example/", "Milk", "Bread");
});
