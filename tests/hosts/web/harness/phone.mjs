import { mkdtemp, rm } from "node:fs/promises";
import { createRequire } from "node:module";
import { tmpdir } from "node:os";
import { join } from "node:path";
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

/** A browser on a phone: a profile that outlives it, and a record of what went wrong in its pages. */
export class Phone {
    /** `changes` are those of the browser's options that differ from a phone's; `args` are further ones. */
    static async start(changes = {}) {
        const phone = new Phone();
        phone.#profile = await mkdtemp(join(tmpdir(), "velmorath-phone-"));
        phone.#options = { ...options, ...changes, args: [...options.args, ...changes.args ?? []] };
        await phone.startAgain();
        return phone;
    }

    /** A new browser with the profile of the one that is gone. */
    async startAgain() {
        this.context = await chromium.launchPersistentContext(this.#profile, this.#options);
    }

    /** A new tab, with the page at the address in it when there is one. */
    async open(address) {
        const page = await this.context.newPage();
        page.on("pageerror", (error) => this.faults.push(`error: ${error.message}`));
        page.on("console", (message) => message.type() === "error" && this.faults.push(message.text()));
        page.on("request", (request) => this.requests.push(request.url()));
        if (address) {
            await page.goto(address, { waitUntil: "networkidle" });
        }
        return Tab.on(page);
    }

    /** The browser is gone at once, without a chance to put anything in order. */
    async kill() {
        const session = await this.context.browser().newBrowserCDPSession();
        const { processInfo } = await session.send("SystemInfo.getProcessInfo");
        const gone = new Promise((resolve) => this.context.once("close", resolve));
        process.kill(processInfo.find(({ type }) => type === "browser").id, "SIGKILL");
        await gone;
    }

    /** Closes everything. Fails when anything went wrong in a page that no test took off the record. */
    async stop() {
        await this.context.close();
        await rm(this.#profile, { recursive: true, force: true, maxRetries: 10 });
        if (this.faults.length) {
            throw new Error(`The pages complained:\n${this.faults.join("\n")}`);
        }
    }

    #profile = "";
    #options = {};
    context = null;
    faults = [];
    requests = [];
}
