import assert from "node:assert/strict";
import { createHash } from "node:crypto";
import { readFile, writeFile } from "node:fs/promises";
import { join } from "node:path";
import { test } from "node:test";
import { setTimeout as sleep } from "node:timers/promises";
import { sameEverywhere } from "./harness/engine.mjs";
import { Site } from "./harness/site.mjs";

const site = Site.forEachTest();

async function openInstalled() {
    const tab = await site.open(site.address);
    await tab.until("the worker has the page", () => navigator.serviceWorker.controller !== null);
    return tab;
}

// Another version, which differs in its style. Not a whole one while the style is still the old one.
async function deployNext({ whole }) {
    const [style, worker] = ["style.css", "sw.js"].map((name) => join(site.server.folder, name));
    const digest = (text) => createHash("sha256").update(text).digest("hex");
    const old = await readFile(style, "utf8");
    const next = `${old}\n#of-the-next-version {}\n`;
    const text = await readFile(worker, "utf8");
    if (whole) {
        await writeFile(style, next);
    }
    await writeFile(worker, text.replace(digest(old), digest(next)).replace(/version = "\w+"/, 'version = "next"'));
}

// Which version a page began with, and which it gets when it asks for a file now, as the program does for sounds.
function versions(tab) {
    return tab.evaluate(async () => {
        const version = (style) => (style.includes("#of-the-next-version") ? "next" : "first");
        const begun = Array.from(document.styleSheets[0].cssRules, ({ cssText }) => cssText).join();
        return [begun, await (await fetch("style.css")).text()].map(version);
    });
}

test("starts without a server from what it kept, in a subfolder, with nothing from elsewhere", async () => {
    const tab = await openInstalled();
    await site.server.pause();
    await tab.reload();
    await tab.until("there is the list", () => document.querySelector("#mirror *") !== null);
    await tab.goto(`${site.address}index.html?from=elsewhere`);
    const missing = await tab.evaluate(async () => {
        const names = Object.keys(await (await fetch("resources/index.json")).json());
        const files = ["velmorath.wasm", ...names.map((name) => `resources/${name}`)];
        const answers = await Promise.all(files.map((file) => fetch(file)));
        return answers.filter(({ ok }) => !ok).map(({ url }) => url);
    });
    assert.deepEqual(missing, []);
    await site.server.resume();
    assert.deepEqual(site.requests.filter((address) => !address.startsWith(site.address)), []);
});

test("a newer version comes whole, with a reload of the only page, and clears up after its own kind", async () => {
    const tab = await openInstalled();
    await tab.evaluate(() => caches.open("velmorath of another folder"));
    await deployNext({ whole: true });
    await tab.reload();
    await tab.until("the newer version waits", async () =>
        (await navigator.serviceWorker.getRegistration()).waiting !== null);

    const second = await site.open(site.address);
    await second.reload();
    await second.until("it is a list again", () => document.querySelector("#notice h1") !== null);
    for (const page of [tab, second]) {
        assert.deepEqual(await versions(page), ["first", "first"]);
    }
    await second.close();
    // Browsers take their time to count it no longer.
    await sleep(1000);

    await tab.reload();
    await tab.until("the newer version runs", async () => {
        const { waiting } = await navigator.serviceWorker.getRegistration();
        return waiting === null
            && Array.from(document.styleSheets[0].cssRules).some((rule) => rule.selectorText === "#of-the-next-version");
    });
    assert.deepEqual(await versions(tab), ["next", "next"]);
    const names = await tab.evaluate(() => caches.keys());
    assert.deepEqual(names.sort(), [`velmorath ${site.address} next`, "velmorath of another folder"].sort());
});

test("a server that is still being updated changes nothing", async () => {
    const tab = await openInstalled();
    await deployNext({ whole: false });
    const failed = await tab.evaluate(async () => {
        const registration = await navigator.serviceWorker.getRegistration();
        await registration.update();
        const worker = registration.installing;
        await new Promise((resolve) => worker.addEventListener("statechange", resolve));
        return worker.state;
    });
    assert.equal(failed, "redundant");
    await tab.reload();
    assert.deepEqual(await versions(tab), ["first", "first"]);
});

test("a notice says its texts as they are, to everybody, and its button takes the focus", sameEverywhere, async () => {
    const tab = await openInstalled();
    await tab.evaluate(async () => {
        const { showNotice } = await import(new URL("notice.js", location.href).href);
        globalThis.presses = 0;
        showNotice({
            title: "Velmorath <b>stopped</b>",
            text: "Your list is untouched.",
            details: "<img src=x> ".repeat(200),
            button: "Start again",
            onButton: () => globalThis.presses++,
        });
    });
    assert.deepEqual(await tab.texts("#notice h1"), ["Velmorath <b>stopped</b>"]);
    assert.deepEqual(await tab.texts("#notice img"), []);
    assert.deepEqual(await tab.obstacles(), []);
    await tab.key("Enter");
    await tab.evaluate(() => document.getElementById("notice").scrollTo(0, 1e6));
    await tab.tapOn("#notice button");
    assert.equal(await tab.evaluate(() => globalThis.presses), 2);
});

const smallest = { width: 320, height: 480 };
const doesNoticeFit = () => {
    const { scrollWidth, scrollHeight } = document.getElementById("notice");
    return scrollWidth <= innerWidth && scrollHeight <= innerHeight;
};

test("every language has every word, and the words fit the smallest page", sameEverywhere, async () => {
    const tab = await openInstalled();
    await tab.page.setViewport(smallest);
    const wordsFor = (...languages) => tab.evaluate(async (wanted) =>
        (await import(new URL("words.js", location.href).href)).words(wanted), languages);
    const english = await wordsFor("xx", "toString");
    for (const language of ["en", "it", "fr", "es", "pt-BR", "de-AT", "ja"]) {
        const said = await wordsFor(language);
        assert.equal(said.language, language.slice(0, 2));
        assert.deepEqual(Object.keys(said), Object.keys(english));
        for (const name of ["stopped", "elsewhere", "noStorage", "slowStorage", "notLoaded"]) {
            await tab.evaluate(async ([title, text, button]) => {
                const { showNotice } = await import(new URL("notice.js", location.href).href);
                showNotice({ title, text, button });
            }, [said[name], said[`${name}Text`] ?? said.untouched, said.startAgain]);
            assert.ok(await tab.evaluate(doesNoticeFit), `${language}: ${said[name]}`);
        }
        const height = await tab.evaluate(async (texts) => {
            const { showRemark } = await import(new URL("notice.js", location.href).href);
            const remove = texts.map((text) => showRemark({ text, button: "OK" }));
            const { offsetHeight, scrollHeight, scrollWidth } = document.getElementById("remarks");
            remove.forEach((each) => each());
            return scrollWidth <= innerWidth && scrollHeight <= offsetHeight ? offsetHeight : Infinity;
        }, [said.unsaved, `${said.copies} ${said.homeScreen}`]);
        assert.ok(height <= 240, `${language}: ${height} points of remarks`);
    }
});

test("a browser without what the page needs says so, and starts nothing", sameEverywhere, async () => {
    for (const script of [
        () => delete Intl.Segmenter,
        () => delete CanvasRenderingContext2D.prototype.roundRect,
        () => delete HTMLElement.prototype.inert,
        () => delete AbortSignal.timeout,
        () => delete globalThis.WebAssembly,
    ]) {
        const tab = await site.open(site.address, script);
        assert.deepEqual(await tab.texts("#notice h1"), ["This browser is too old"], script.toString());
        assert.ok(!site.requests.some((address) => address.endsWith(".wasm")), script.toString());
        assert.deepEqual(await tab.texts("#mirror *"), []);
    }
    const tab = await site.open(site.address);
    await tab.until("it starts elsewhere", () => document.querySelector("#mirror *") !== null);
    assert.deepEqual(await tab.texts("#notice h1"), []);
});

test("it says so in the reader's language, on the smallest page, and when it cannot read the page's scripts", sameEverywhere, async () => {
    await writeFile(join(site.server.folder, "main.js"), "import of what is new;");
    const said = new Set();
    for (const language of ["xx", "it-CH", "fr", "es", "pt-BR", "de", "ja"]) {
        const tab = await site.open(site.address, new Function(`
            delete Intl.Segmenter;
            Object.defineProperty(navigator, "languages", { value: ["tlh", "${language}", "en"] });`));
        await tab.page.setViewport(smallest);
        const [title] = await tab.texts("#notice h1");
        said.add(title);
        assert.equal(await tab.evaluate(() => document.documentElement.lang), language === "xx" ? "en" : language.slice(0, 2));
        assert.ok(await tab.evaluate(doesNoticeFit), title);
        assert.deepEqual(await tab.obstacles(), []);
        assert.match(site.faults.join(), /SyntaxError|Unexpected|import/);
        site.faults.length = 0;
    }
    assert.equal(said.size, 7);
    assert.ok(said.has("This browser is too old"));
});
