import { isDeepStrictEqual } from "node:util";
import { archiveOf, notesIn, paths, settingsIn, usualSettings } from "./formats.mjs";
import { until } from "./until.mjs";

const rowHeight = 60;

/** The middle of a row's height, of those in sight. */
export function rowMiddle(row) {
    return row * rowHeight + rowHeight / 2;
}

/** The program in a tab of the phone: what it shows, what it says, what it keeps. */
export class List {
    /** A tab with nothing in it yet. A stranger has not read yet that the list should be copied. */
    static async inNewTab(site, { isStranger = false } = {}) {
        const list = new List();
        list.tab = await site.open(null, countFrames, ...isStranger ? [] : [knowCopies]);
        list.tab.onLine = (line) => list.lines.push(line);
        list.address = site.address;
        return list;
    }

    /** Opens the page with what it has kept, if there is anything; a stranger as above. */
    static async opened(site, stranger) {
        const list = await List.inNewTab(site, stranger);
        await list.open();
        return list;
    }

    /** A tab for somebody who has had the program for some time, and these bytes in the place of the notes. */
    static async over(site, archive) {
        const list = await List.inNewTab(site);
        await list.tab.goto(`${list.address}blank.html`);
        const files = Object.entries({ [paths.notes]: archive, [paths.settings]: await usualSettings() });
        await list.tab.evaluate(async (encoded) => {
            const { openStorage } = await import(new URL("storage.js", location.href).href);
            const storage = await openStorage();
            await Promise.all(encoded.map(async ([path, text]) => {
                const bytes = await (await fetch(`data:;base64,${text}`)).arrayBuffer();
                return storage.replace(path, new Uint8Array(bytes));
            }));
            storage.close();
        }, files.map(([path, bytes]) => [path, bytes.toString("base64")]));
        return list;
    }

    /** Opens the page for somebody who has these notes; see formats.mjs. */
    static async with(site, notes) {
        const list = await List.over(site, await archiveOf(notes));
        await list.open();
        return list;
    }

    /** Opens the page for somebody who had it open before. */
    async open() {
        await this.tab.goto(this.address);
        await this.ready();
    }

    async reload() {
        await this.tab.reload();
        await this.ready();
    }

    async ready() {
        await this.tab.until("there is something on the screen", () =>
            document.querySelector("#mirror *") !== null || !document.getElementById("notice").hidden);
        await this.atRest();
    }

    /** Nothing moves, and the mirror shows what the screen does. */
    async atRest() {
        await this.tab.until("nothing moves", () =>
            frames.waiting === 0 && frames.writes === 0 && performance.now() - frames.last > 200);
        await this.tab.leavePicture();
    }

    // What is kept.

    /** What is in the database under a path; null when there is nothing. */
    async kept(path) {
        const text = await this.tab.evaluate(readFile, path);
        return text === null ? null : Buffer.from(text, "base64");
    }

    async notes() {
        const bytes = await this.kept(paths.notes);
        return bytes ? notesIn(bytes) : [];
    }

    /** In short: a completed note has an x before it. */
    async texts() {
        return (await this.notes()).map(({ text, completed }) => (completed ? "x " : "") + text);
    }

    async settings() {
        return settingsIn(await this.kept(paths.settings));
    }

    /** Waits until exactly these notes are kept, and everything has come to rest. */
    async untilKept(...wanted) {
        await until(`these are kept: ${wanted}`, async () => {
            const found = await this.texts();
            return isDeepStrictEqual(found, wanted) || found;
        });
        await this.atRest();
    }

    /** Does something, and waits until the program has said this once more. */
    async untilSaid(line, action) {
        const count = () => this.lines.filter((said) => said === line).length;
        const before = count();
        await action();
        await until(`it is said: ${line}`, () => count() > before);
    }

    // Fingers.

    /** Touches a place and waits for what comes of it. */
    async tap(place) {
        await this.tab.tap(place);
        await this.atRest();
    }

    /** Touches what stands on the screen under this name. */
    async tapOn(name) {
        const { left, top, width, height } = await this.box(name);
        await this.tap([left + width / 2, top + height / 2]);
    }

    async swipe(row, from, to) {
        await this.tab.drag([from, rowMiddle(row)], [to, rowMiddle(row)]);
    }

    /** Pulls the list down for a new note, whose text can be typed then. */
    async pull() {
        await this.tab.drag([200, 100], [200, 330]);
        await this.editing();
    }

    async add(text) {
        await this.pull();
        await this.type(text);
        await this.tab.key("Enter");
        await this.atRest();
    }

    // The editor.

    /** Waits until a text is being edited. */
    async editing() {
        await this.tab.until("a text is edited", () => document.activeElement.parentElement?.parentElement?.id === "editors");
        await this.atRest();
    }

    async type(text) {
        await this.tab.type(text);
    }

    /** What is edited, as the browser knows it. */
    edited() {
        return this.tab.evaluate(() => {
            const field = document.activeElement;
            return { kind: field.localName, label: field.ariaLabel, value: field.value };
        });
    }

    // What a screen reader finds.

    /** Waits until something can be pressed or read under this name. */
    async appears(name) {
        await this.tab.until(`there is ${name}`, (text) => find(text) !== null, name);
    }

    /** Where it is. */
    async box(name) {
        await this.appears(name);
        return this.tab.evaluate((text) => find(text).getBoundingClientRect().toJSON(), name);
    }

    /** All that is said of the screen, in its order, but for dates. */
    async said() {
        await this.atRest();
        const texts = await this.tab.evaluate(() =>
            Array.from(document.querySelectorAll("#mirror *"))
                .filter((element) => element.childElementCount === 0)
                .filter((element) => !element.matches(".action"))
                .map((element) => element.ariaLabel ?? element.textContent));
        return texts.map(withoutDate);
    }

    /** Presses what has this name. Not as a screen reader does: see reader.py. */
    async press(name) {
        await this.appears(name);
        await this.tab.evaluate((text) => find(text).click(), name);
        await this.atRest();
    }

    /** Where the keys are, in words. */
    async focused() {
        await this.atRest();
        return withoutDate(await this.tab.evaluate(() =>
            document.activeElement.ariaLabel ?? document.activeElement.textContent));
    }

    async key(name) {
        await this.tab.key(name);
        await this.atRest();
    }

    lines = [];
    tab = null;
    address = "";
}

function withoutDate(text) {
    return text.replace(/, [A-Z][a-z]+ \d+, \d{4}/, "");
}

/** Runs in the page, before everything. Frames wait for writes, so those are counted, too. */
function countFrames() {
    // What can be pressed or read under a name, with nothing inside that is called so, too.
    globalThis.find = (name) => Array.from(document.querySelectorAll("#mirror *"))
        .filter((element) => element.ariaLabel === name || element.textContent.trim() === name)
        .find((element, _, found) => !found.some((other) => other !== element && element.contains(other))) ?? null;
    const frames = { count: 0, waiting: 0, writes: 0, last: performance.now(), onFrame() {} };
    globalThis.frames = frames;
    const request = globalThis.requestAnimationFrame.bind(globalThis);
    globalThis.requestAnimationFrame = (handler) => {
        ++frames.waiting;
        return request((time) => {
            --frames.waiting;
            ++frames.count;
            frames.last = performance.now();
            handler(time);
            frames.onFrame();
        });
    };
    const { transaction } = IDBDatabase.prototype;
    IDBDatabase.prototype.transaction = function begin(...how) {
        const begun = transaction.apply(this, how);
        ++frames.writes;
        const end = () => {
            --frames.writes;
            frames.last = performance.now();
        };
        begun.addEventListener("complete", end);
        begun.addEventListener("abort", end);
        return begun;
    };
}

/** Runs in the page, before everything, but not where there is no place to remember it. */
function knowCopies() {
    if (location.protocol === "http:") {
        localStorage.setItem(`velmorath ${new URL(".", location.href).href} has told of copies`, "yes");
    }
}

/** Runs in the page. */
function readFile(path) {
    return new Promise((resolve, reject) => {
        const opening = indexedDB.open(`velmorath ${new URL(".", location.href).href}`);
        opening.onupgradeneeded = () => opening.transaction.abort();
        opening.onerror = () => resolve(null);
        opening.onsuccess = () => {
            const database = opening.result;
            const found = database.transaction("files").objectStore("files").get(path);
            found.onerror = () => reject(found.error);
            found.onsuccess = () => {
                database.close();
                if (!found.result) {
                    resolve(null);
                    return;
                }
                const reader = new FileReader();
                reader.onload = () => resolve(reader.result.slice(reader.result.indexOf(",") + 1));
                reader.readAsDataURL(new Blob([found.result]));
            };
        };
    });
}
