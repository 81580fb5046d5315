import { once } from "node:events";
import { rm } from "node:fs/promises";
import { createRequire } from "node:module";
import { join } from "node:path";
import { engine } from "./engine.mjs";
import { Tab } from "./tab.mjs";

const puppeteer = createRequire(import.meta.url)("puppeteer-core");

const phone = { width: 375, height: 667, deviceScaleFactor: 2, hasTouch: true };
const options = {
    chromium: {
        browser: "chrome",
        executablePath: process.env.VELMORATH_CHROMIUM ?? "/usr/bin/chromium",
        args: ["--no-sandbox", "--disable-gpu", "--disable-quic", "--disable-component-update"],
        defaultViewport: { ...phone, isMobile: true },
    },
    firefox: {
        browser: "firefox",
        executablePath: process.env.VELMORATH_FIREFOX ?? "/usr/bin/firefox-esr",
        args: [],
        defaultViewport: phone,
    },
}[engine];

/** Chromium and Firefox, driven by Puppeteer. Tests that are run in Chromium alone may use its tabs' `page`. */
export class Browser {
    /** `changes` are those of Puppeteer's viewport; `args` are further ones of the program. */
    static async start(profile, { args = [], ...changes }) {
        // Firefox's settings would be put back when a browser has gone, while the next one reads them already.
        await Promise.all(["user.js", "prefs.js"].map((name) => rm(join(profile, name), { force: true })));
        const browser = new Browser();
        browser.#driver = await puppeteer.launch({
            ...options,
            args: [...options.args, ...args],
            defaultViewport: { ...options.defaultViewport, ...changes },
            env: { ...process.env, TZ: "UTC", LANGUAGE: "en" },
            userDataDir: profile,
        });
        return browser;
    }

    async newTab(scripts) {
        const page = await this.#driver.newPage();
        for (const script of scripts) {
            await page.evaluateOnNewDocument(script);
        }
        return engine === "chromium" ? new ChromiumTab(page) : new FirefoxTab(page);
    }

    async closeTabs() {
        const pages = await this.#driver.pages();
        await this.#driver.newPage();
        await Promise.all(pages.map((page) => page.close()));
    }

    async kill() {
        const program = this.#driver.process();
        const gone = once(program, "exit");
        program.kill("SIGKILL");
        await gone;
    }

    close() {
        return this.#driver.close();
    }

    #driver;
}

class PuppeteerTab extends Tab {
    constructor(page) {
        super();
        this.page = page;
        // Firefox tells, too, what a page that goes away waits for no longer.
        page.on("pageerror", ({ message }) => /ServiceWorker intercepted/.test(message) || this.onFault(`error: ${message}`));
        page.on("console", (message) => this.#hear(message));
        page.on("request", (request) => this.onRequest(request.url()));
    }

    async #hear(message) {
        let text = message.text();
        this.onLine(text);
        if (message.type() === "error") {
            // What is no text is a mere "JSHandle@error", and nothing any more when its page has gone.
            if (text.startsWith("JSHandle@")) {
                text = await message.args()[0].evaluate(String).catch(() => "");
            }
            if (text) {
                this.onFault(text);
            }
        }
    }

    evaluate(action, argument) {
        return this.page.evaluate(action, argument);
    }

    goto(address) {
        return this.page.goto(address);
    }

    reload() {
        return this.page.reload();
    }

    back() {
        return this.page.goBack({ waitUntil: [] });
    }

    async close() {
        const closed = new Promise((resolve) => this.page.once("close", resolve));
        await this.page.close({ runBeforeUnload: true });
        await closed;
    }

    async hide() {
        await this.page.browser().newPage();
        await this.until("it is out of sight", () => document.hidden);
    }

    async show() {
        await this.page.bringToFront();
        await this.until("it is in sight", () => !document.hidden);
    }

    async key(name) {
        const keys = name.split("+");
        for (const key of keys) {
            await this.page.keyboard.down(key);
        }
        for (const key of keys.reverse()) {
            await this.page.keyboard.up(key);
        }
    }

    type(text) {
        return this.page.keyboard.type(text);
    }

    async screenshot() {
        return Buffer.from(await this.page.screenshot());
    }

    page = null;
}

class ChromiumTab extends PuppeteerTab {
    /** All fingers at once, as the browser enlarges with them. */
    touch(phase, places) {
        const type = { start: "touchStart", move: "touchMove", end: "touchEnd" }[phase];
        const touchPoints = phase === "end" ? [] : places.map(([x, y], id) => ({ x, y, id }));
        return this.command("Input.dispatchTouchEvent", { type, touchPoints });
    }

    /** A command of the browser's own debugging protocol. */
    async command(name, parameters) {
        this.#session ??= await this.page.createCDPSession();
        return this.#session.send(name, parameters);
    }

    /** The page is gone at once, and the browser stays. */
    async crash() {
        const crashed = new Promise((resolve) => this.page.once("error", resolve));
        this.command("Page.crash").catch(() => {});
        await crashed;
        await this.page.close();
    }

    #session;
}

class FirefoxTab extends PuppeteerTab {
    async touch(phase, places) {
        if (phase === "start") {
            for (const [x, y] of places) {
                this.#fingers.push(await this.page.touchscreen.touchStart(x, y));
            }
        } else if (phase === "move") {
            for (const [finger, [x, y]] of places.entries()) {
                await this.#fingers[finger].move(x, y);
            }
        } else {
            for (const finger of this.#fingers.splice(0)) {
                await finger.end();
            }
        }
    }

    #fingers = [];
}
