import { createRequire } from "node:module";
import { Tab } from "./tab.mjs";

const { chromium } = createRequire(import.meta.url)("playwright-core");

const options = {
    executablePath: process.env.VELMORATH_CHROMIUM ?? "/usr/bin/chromium",
    args: [
        "--no-sandbox",
        "--disable-gpu",
        "--disable-quic",
        "--no-first-run",
        "--disable-background-networking",
        "--disable-component-update",
        "--disable-sync",
    ],
    viewport: { width: 375, height: 667 },
    deviceScaleFactor: 2,
    hasTouch: true,
    isMobile: true,
    locale: "en-US",
    timezoneId: "UTC",
};

/** Chromium, driven by Playwright. Tests that are run in it alone may use its `context` and its tabs' `page`. */
export class Browser {
    /** `changes` are options of Playwright's; `args` are further ones. */
    static async start(profile, changes) {
        const browser = new Browser();
        const args = [...options.args, ...changes.args ?? []];
        browser.context = await chromium.launchPersistentContext(profile, { ...options, ...changes, args });
        return browser;
    }

    async newTab(scripts) {
        const page = await this.context.newPage();
        for (const script of scripts) {
            await page.addInitScript(script);
        }
        return ChromiumTab.on(page);
    }

    /** What the tests have set for the whole browser goes with them. */
    async closeTabs() {
        await this.context.unrouteAll();
        await this.context.clearPermissions();
        const pages = this.context.pages();
        await this.context.newPage();
        await Promise.all(pages.map((page) => page.close()));
    }

    async kill() {
        const session = await this.context.browser().newBrowserCDPSession();
        const { processInfo } = await session.send("SystemInfo.getProcessInfo");
        const gone = new Promise((resolve) => this.context.once("close", resolve));
        process.kill(processInfo.find(({ type }) => type === "browser").id, "SIGKILL");
        await gone;
    }

    close() {
        return this.context.close();
    }

    context = null;
}

class ChromiumTab extends Tab {
    static async on(page) {
        const tab = new ChromiumTab();
        tab.page = page;
        tab.#session = await page.context().newCDPSession(page);
        page.setDefaultTimeout(10000);
        page.on("pageerror", (error) => tab.onFault(`error: ${error.message}`));
        page.on("console", (message) => {
            tab.onLine(message.text());
            if (message.type() === "error") {
                tab.onFault(message.text());
            }
        });
        page.on("request", (request) => tab.onRequest(request.url()));
        return tab;
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
        return this.page.goBack({ waitUntil: "commit" });
    }

    async close() {
        const closed = this.page.waitForEvent("close");
        await this.page.close({ runBeforeUnload: true });
        await closed;
    }

    /** Without a window every tab is in sight: the page is only told that it is not. */
    hide() {
        return this.#setHidden(true);
    }

    async show() {
        await this.page.bringToFront();
        if (await this.page.evaluate(() => document.hidden)) {
            await this.#setHidden(false);
        }
    }

    #setHidden(hidden) {
        return this.page.evaluate((value) => {
            Object.defineProperty(document, "hidden", { value, configurable: true });
            document.dispatchEvent(new Event("visibilitychange"));
        }, hidden);
    }

    /** The page is gone at once, and the browser stays. */
    async crash() {
        const crashed = this.page.waitForEvent("crash");
        this.command("Page.crash").catch(() => {});
        await crashed;
        await this.page.close();
    }

    key(name) {
        return this.page.keyboard.press(name);
    }

    type(text) {
        return this.page.keyboard.type(text);
    }

    async touch(phase, places) {
        const type = { start: "touchStart", move: "touchMove", end: "touchEnd" }[phase];
        const touchPoints = phase === "end" ? [] : places.map(([x, y], id) => ({ x, y, id }));
        await this.#session.send("Input.dispatchTouchEvent", { type, touchPoints });
    }

    screenshot() {
        return this.page.screenshot();
    }

    /** A command of the browser's own debugging protocol. */
    command(name, parameters) {
        return this.#session.send(name, parameters);
    }

    #session;
    page = null;
}
