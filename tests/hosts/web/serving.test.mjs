import assert from "node:assert/strict";
import { cp, readFile, rename, writeFile } from "node:fs/promises";
import { join } from "node:path";
import { test } from "node:test";
import { gzipSync } from "node:zlib";
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
        assert.deepEqual((await tab.command("Page.getInstallabilityErrors")).installabilityErrors, []);
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

const picturesAskedFor = () => site.requests.filter((address) => address.endsWith(".jpg")).length;

// Whether the tutorial's first picture is on the canvas, which is black where it is not.
const hasPicture = () => {
    const canvas = document.getElementById("screen");
    const { data } = canvas.getContext("2d").getImageData(canvas.width / 4, canvas.height / 4, canvas.width / 2, canvas.height / 4);
    return data.filter((value, place) => place % 4 < 3 && value > 60).length > data.length / 20;
};

test("the first list is painted after 200 kB, compressed", async () => {
    const list = await List.inNewTab(site);
    const painted = new Promise((resolve) => {
        list.tab.onLine = (line) => line === "painted" && resolve([...site.requests]);
    });
    await list.tab.page.evaluateOnNewDocument(() => {
        const { fillText } = CanvasRenderingContext2D.prototype;
        CanvasRenderingContext2D.prototype.fillText = function fill(...what) {
            console.log("painted");
            CanvasRenderingContext2D.prototype.fillText = fillText;
            return fillText.apply(this, what);
        };
    });
    await list.open();
    const names = (await painted).map((address) => address.slice(site.address.length) || "index.html");
    const sizes = await Promise.all(names.map(async (name) =>
        [name, gzipSync(await readFile(join(site.server.folder, name)), { level: 9 }).length]));
    const sum = sizes.reduce((total, [, size]) => total + size, 0);
    assert.ok(names.includes("velmorath.wasm") && !names.includes("sw.js"), names.join());
    assert.ok(sum <= 200_000, `${sum} bytes: ${sizes.sort((a, b) => b[1] - a[1]).join(" ")}`);
});

test("the module is on its way while the list is not there yet, which is said when it takes long", async () => {
    site.addScript(() => {
        IDBFactory.prototype.open = () => new EventTarget();
    });
    const tab = await site.open(site.address);
    await tab.until("it is said", () => document.getElementById("notice").textContent.includes("not there yet"));
    assert.ok(site.requests.some((address) => address.endsWith(".wasm")));
});

test("the tutorial's pictures come when it is opened, however late", async () => {
    const picture = join(site.server.folder, "resources", "pictures", "1info.jpg");
    await rename(picture, `${picture} to be`);
    site.addScript(() => {
        // The worker would get them, too.
        ServiceWorkerContainer.prototype.register = () => Promise.reject(new Error("no worker"));
    });
    const list = await List.with(site, ["One"]);
    assert.equal(picturesAskedFor(), 0);
    await list.tapOn("Information");
    await list.tapOn("Watch tutorial");
    assert.ok(picturesAskedFor() > 0);
    assert.equal(await list.tab.evaluate(hasPicture), false);
    await rename(`${picture} to be`, picture);
    await list.tab.until("the picture is there", hasPicture);
    assert.match(site.faults.join(), /1info\.jpg cannot be read/);
    site.faults.length = 0;
});

test("what is said of a picture's size is so, and one that is none is told", async () => {
    const tab = await site.open(site.address);
    const [said, found] = await tab.evaluate(async () => {
        const index = await (await fetch("resources/index.json")).json();
        const sizes = Object.entries(index).filter(([, size]) => size);
        return [sizes, await Promise.all(sizes.map(async ([name]) => {
            const { width, height } = await createImageBitmap(await (await fetch(`resources/${name}`)).blob());
            return [name, [width, height]];
        }))];
    });
    assert.ok(said.length >= 2);
    assert.deepEqual(said, found);
    await tab.evaluate(async () => {
        const { Pictures } = await import(new URL("pictures.js", location.href).href);
        const bytes = new Uint8Array(await (await fetch("resources/pictures/ok.png")).arrayBuffer());
        await new Promise((resolve) => {
            new Pictures((decoded) => decoded.then(resolve), () => {}).decode(bytes.slice(0, 100));
        });
    });
    assert.match(site.faults.join(), /A picture cannot be read/);
    site.faults.length = 0;
});
