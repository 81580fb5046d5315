import assert from "node:assert/strict";
import { readFile, rename } from "node:fs/promises";
import { join } from "node:path";
import { test } from "node:test";
import { gzipSync } from "node:zlib";
import { List } from "./harness/list.mjs";
import { Site } from "./harness/site.mjs";

const site = Site.forEachTest();

const picturesAskedFor = () => site.requests.filter((address) => address.endsWith(".jpg")).length;

// Whether the tutorial's first picture is on the canvas, which is black where it is not.
const hasPicture = () => {
    const canvas = document.getElementById("screen");
    const { data } = canvas.getContext("2d").getImageData(canvas.width / 4, canvas.height / 4, canvas.width / 2, canvas.height / 4);
    return data.filter((value, place) => place % 4 < 3 && value > 60).length > data.length / 20;
};

async function openTutorial(list) {
    await list.tapOn("Information");
    await list.tapOn("Watch tutorial");
}

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
    await openTutorial(list);
    await list.atRest();
    assert.ok(picturesAskedFor() > 0);
    assert.equal(await list.tab.evaluate(hasPicture), false);
    await rename(`${picture} to be`, picture);
    await list.tab.until("the picture is there", hasPicture);
    assert.match(site.faults.join(), /1info\.jpg cannot be read/);
    site.faults.length = 0;
});

test("what is said of a picture's size is so, and one that is none is told", async () => {
    const tab = await site.open(site.address);
    const sizes = await tab.evaluate(async () => {
        const index = Object.entries(await (await fetch("resources/index.json")).json());
        return Promise.all(index.filter(([, size]) => size).map(async ([name, size]) => {
            const { width, height } = await createImageBitmap(await (await fetch(`resources/${name}`)).blob());
            return [name, size.join(), [width, height].join()];
        }));
    });
    assert.ok(sizes.length >= 2);
    for (const [name, said, found] of sizes) {
        assert.equal(said, found, name);
    }
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
