import { spawn } from "node:child_process";
import { once } from "node:events";
import { writeFile } from "node:fs/promises";
import { createRequire } from "node:module";
import { join } from "node:path";
import { createInterface } from "node:readline";
import { Tab } from "./tab.mjs";

const puppeteer = createRequire(import.meta.url)("puppeteer-core");

const program = process.env.VELMORATH_FIREFOX ?? "/usr/bin/firefox-esr";
const settings = {
    "app.normandy.enabled": false,
    "app.update.disabledForTesting": true,
    "browser.sessionstore.resume_from_crash": false,
    "browser.shell.checkDefaultBrowser": false,
    "browser.startup.homepage": "about:blank",
    "browser.startup.page": 0,
    "datareporting.policy.dataSubmissionEnabled": false,
    "dom.disable_open_during_load": false,
    "extensions.systemAddon.update.enabled": false,
    "intl.accept_languages": "en-US",
    "network.captive-portal-service.enabled": false,
    "network.connectivity-service.enabled": false,
    "services.settings.server": "data:,",
    "toolkit.startup.max_resumed_crashes": -1,
    "toolkit.telemetry.reportingpolicy.firstRun": false,
};

/** Firefox, driven by Puppeteer over WebDriver BiDi. */
export class Browser {
    /** `changes` may have a `deviceScaleFactor`. */
    static async start(profile, { deviceScaleFactor = 2 }) {
        const lines = Object.entries(settings).map(([name, value]) => `user_pref("${name}", ${JSON.stringify(value)});\n`);
        await writeFile(join(profile, "user.js"), lines.join(""));
        const browser = new Browser();
        browser.#process = spawn(program, ["--headless", "--no-remote", "--profile", profile, "--remote-debugging-port", "0"], {
            env: { ...process.env, TZ: "UTC" },
            stdio: ["ignore", "ignore", "pipe"],
        });
        browser.#gone = once(browser.#process, "exit");
        const address = await new Promise((resolve) => {
            createInterface(browser.#process.stderr).on("line", (line) => {
                const [, found] = /BiDi listening on (ws:\S+)/.exec(line) ?? [];
                if (found) {
                    resolve(found);
                }
            });
        });
        browser.#driver = await puppeteer.connect({
            browserWSEndpoint: `${address}/session`,
            protocol: "webDriverBiDi",
            defaultViewport: { width: 375, height: 667, deviceScaleFactor, hasTouch: true },
        });
        return browser;
    }

    async newTab(scripts) {
        const page = await this.#driver.newPage();
        for (const script of scripts) {
            await page.evaluateOnNewDocument(script);
        }
        return new FirefoxTab(page);
    }

    async closeTabs() {
        const pages = await this.#driver.pages();
        await this.#driver.newPage();
        await Promise.all(pages.map((page) => page.close()));
    }

    async kill() {
        this.#process.kill("SIGKILL");
        await this.#gone;
    }

    async close() {
        await this.#driver.close();
        await this.#gone;
    }

    #process;
    #gone;
    #driver;
}

class FirefoxTab extends Tab {
    constructor(page) {
        super();
        this.#page = page;
        // Also told is what a page that goes away waits for no longer.
        page.on("pageerror", ({ message }) => /ServiceWorker intercepted/.test(message) || this.onFault(`error: ${message}`));
        page.on("console", async (message) => {
            this.onLine(message.text());
            if (message.type() === "error") {
                const words = message.args().map((word) => word.evaluate(String).catch(() => null));
                const said = (await Promise.all(words)).join(" ");
                if (said) {
                    this.onFault(said);
                }
            }
        });
        page.on("request", (request) => this.onRequest(request.url()));
    }

    evaluate(action, argument) {
        return this.#page.evaluate(action, argument);
    }

    goto(address) {
        return this.#page.goto(address);
    }

    reload() {
        return this.#page.reload();
    }

    back() {
        return this.#page.goBack({ waitUntil: [] });
    }

    close() {
        return this.#page.close();
    }

    async hide() {
        await this.#page.browser().newPage();
        await this.until("it is out of sight", () => document.hidden);
    }

    async show() {
        await this.#page.bringToFront();
        await this.until("it is in sight", () => !document.hidden);
    }

    async key(name) {
        const keys = name.split("+");
        for (const key of keys) {
            await this.#page.keyboard.down(key);
        }
        for (const key of keys.reverse()) {
            await this.#page.keyboard.up(key);
        }
    }

    async type(text) {
        for (const character of text) {
            await this.#page.keyboard.press(character === "\n" ? "Enter" : character);
        }
    }

    async touch(phase, places) {
        if (phase === "start") {
            for (const [x, y] of places) {
                this.#fingers.push(await this.#page.touchscreen.touchStart(x, y));
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

    async screenshot() {
        return Buffer.from(await this.#page.screenshot());
    }

    #page;
    #fingers = [];
}
