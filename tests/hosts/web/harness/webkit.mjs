import { spawn } from "node:child_process";
import { once } from "node:events";
import { createInterface } from "node:readline";
import { setTimeout as sleep } from "node:timers/promises";
import { fileURLToPath } from "node:url";
import { Tab } from "./tab.mjs";

const program = fileURLToPath(new URL("webkit.py", import.meta.url));

/** WebKitGTK, driven by webkit.py. */
export class Browser {
    /** `changes` may have a `deviceScaleFactor`, which is a whole number here. */
    static async start(profile, { deviceScaleFactor = 2 }) {
        const browser = new Browser();
        const env = {
            ...process.env,
            TZ: "UTC",
            LANG: "C.UTF-8",
            GDK_SCALE: String(deviceScaleFactor),
            // A sandbox is not to be had everywhere where tests are run.
            WEBKIT_DISABLE_SANDBOX_THIS_IS_DANGEROUS: "1",
        };
        const stdio = ["pipe", "pipe", "ignore"];
        browser.#process = spawn("/usr/bin/python3", ["-W", "ignore", program, profile], { env, stdio });
        createInterface(browser.#process.stdout).on("line", (line) => browser.#hear(JSON.parse(line)));
        browser.#gone = once(browser.#process, "exit");
        browser.#gone.then(() => {
            browser.#waiting.forEach(({ reject }) => reject(new Error("The browser has gone")));
        });
        return browser;
    }

    async newTab(scripts = []) {
        const tab = new WebKitTab(this, ++this.#lastNumber);
        this.#tabs.set(tab.number, tab);
        await this.ask("open", { tab: tab.number, scripts: scripts.map((script) => `(${script})()`) });
        return tab;
    }

    closeTabs() {
        return this.ask("closeTabs");
    }

    async kill() {
        process.kill(-this.#process.pid, "SIGKILL");
        await this.#gone;
    }

    async close() {
        this.#process.stdin.end();
        await this.#gone;
    }

    ask(what, values) {
        const number = ++this.#lastNumber;
        return new Promise((resolve, reject) => {
            this.#waiting.set(number, { resolve, reject });
            this.#process.stdin.write(`${JSON.stringify({ number, do: what, ...values })}\n`);
        });
    }

    #hear({ tab, said, number, answer, error }) {
        if (tab) {
            this.#tabs.get(tab).hear(...said);
            return;
        }
        const { resolve, reject } = this.#waiting.get(number);
        this.#waiting.delete(number);
        if (error) {
            reject(new Error(error));
        } else {
            resolve(answer);
        }
    }

    #process;
    #gone;
    #lastNumber = 0;
    #waiting = new Map();
    #tabs = new Map();
}

class WebKitTab extends Tab {
    constructor(browser, number) {
        super();
        this.#browser = browser;
        this.number = number;
    }

    hear(kind, text) {
        if (kind === "event") {
            this.#heard[text] = (this.#heard[text] ?? 0) + 1;
            return;
        }
        if (kind === "error") {
            this.onFault(text);
        }
        this.onLine(text);
    }

    evaluate(action, argument) {
        const value = `(${action})(${argument === undefined ? "" : JSON.stringify(argument)})`;
        return this.#ask("evaluate", { script: `return JSON.stringify((await ${value}) ?? null)` });
    }

    goto(address) {
        return this.#ask("goto", { address });
    }

    reload() {
        return this.#ask("reload");
    }

    /** As a script goes back: what WebKit takes for a machine's deed, its own button passes over. */
    back() {
        return this.evaluate(() => history.back());
    }

    close() {
        return this.#ask("close");
    }

    async hide() {
        await this.#browser.newTab();
        await this.until("it is out of sight", () => document.hidden);
    }

    async show() {
        await this.#ask("show");
        await this.until("it is in sight", () => !document.hidden);
    }

    async key(name) {
        await this.#untilHeard("keyup", 1, () => this.#ask("key", { name }));
    }

    async type(text) {
        for (const character of text) {
            await this.key(character === "\n" ? "Enter" : character);
        }
    }

    async touch(phase, places) {
        const awaited = phase === "move" ? 0 : places.length;
        await this.#untilHeard(`touch${phase}`, awaited, () => this.#ask("touch", { phase, places }));
    }

    /** The page gets what the machine tells some time later. */
    async #untilHeard(event, count, act) {
        const wanted = (this.#heard[event] ?? 0) + count;
        await act();
        for (const end = Date.now() + 2000; (this.#heard[event] ?? 0) < wanted && Date.now() < end; ) {
            await sleep(2);
        }
    }

    async screenshot() {
        return Buffer.from(await this.#ask("picture"), "base64");
    }

    #ask(what, values) {
        return this.#browser.ask(what, { tab: this.number, ...values });
    }

    #browser;
    #heard = {};
}
