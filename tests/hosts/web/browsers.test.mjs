import assert from "node:assert/strict";
import { writeFile } from "node:fs/promises";
import { join } from "node:path";
import { test } from "node:test";
import { Site } from "./harness/site.mjs";

const site = Site.forEachTest({ width: 320, height: 480 });

const english = "This browser is too old";

const title = (tab) => tab.texts("#notice h1");

test("a browser without what the page needs says so, and starts nothing", async () => {
    for (const script of [
        () => delete Intl.Segmenter,
        () => delete CanvasRenderingContext2D.prototype.roundRect,
        () => delete HTMLElement.prototype.inert,
        () => delete AbortSignal.timeout,
        () => delete globalThis.WebAssembly,
    ]) {
        const tab = await site.open(site.address, script);
        assert.deepEqual(await title(tab), [english], script.toString());
        assert.ok(!site.requests.some((address) => address.endsWith(".wasm")), script.toString());
        assert.deepEqual(await tab.texts("#mirror *"), []);
    }
    const tab = await site.open(site.address);
    await tab.until("it starts elsewhere", () => document.querySelector("#mirror *") !== null);
    assert.deepEqual(await title(tab), []);
});

test("it says so in the reader's language, on the smallest page, and when it cannot read the page's scripts", async () => {
    await writeFile(join(site.server.folder, "main.js"), "import of what is new;");
    const said = new Set();
    for (const language of ["xx", "it-CH", "fr", "es", "pt-BR", "de", "ja"]) {
        const tab = await site.open(site.address, new Function(`
            delete Intl.Segmenter;
            Object.defineProperty(navigator, "languages", { value: ["tlh", "${language}", "en"] });`));
        const [words] = await title(tab);
        said.add(words);
        assert.equal(await tab.evaluate(() => document.documentElement.lang), language === "xx" ? "en" : language.slice(0, 2));
        assert.ok(await tab.evaluate(() => {
            const { scrollWidth, scrollHeight } = document.getElementById("notice");
            return scrollWidth <= innerWidth && scrollHeight <= innerHeight;
        }), words);
        assert.deepEqual(await tab.obstacles(), []);
        assert.match(site.faults.join(), /SyntaxError|Unexpected|import/);
        site.faults.length = 0;
    }
    assert.equal(said.size, 7);
    assert.ok(said.has(english));
});
