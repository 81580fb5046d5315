import { setTimeout as sleep } from "node:timers/promises";
import { Helper } from "./helper.mjs";
import { Tab } from "./tab.mjs";

/** WebKitGTK, driven by webkit.py. */
export class Browser {
    /** `changes` may have a `deviceScaleFactor`, which is a whole number here. */
    static async start(profile, { deviceScaleFactor = 2 }) {
        const browser = new Browser();
        const env = {
            TZ: "UTC",
            LANG: "C.UTF-8",
            GDK_SCALE: String(deviceScaleFactor),
            // A sandbox is not to be had everywhere where tests are run.
            WEBKIT_DISABLE_SANDBOX_THIS_IS_DANGEROUS: "1",
        };
        const onSaid = ({ tab, said }) => browser.#tabs[tab].hear(...said);
        browser.#program = new Helper("webkit.py", { args: [profile], env, onSaid });
        return browser;
    }

    async newTab(scripts = []) {
        const tab = new WebKitTab(this, this.#program, this.#tabs.length);
        this.#tabs.push(tab);
        await tab.ask("open", { scripts: scripts.map((script) => `(${script})()`) });
        return tab;
    }

    closeTabs() {
        return this.#program.ask("closeTabs");
    }

    kill() {
        return this.#program.kill();
    }

    close() {
        return this.#program.stop();
    }

    #program;
    #tabs = [];
}

class WebKitTab extends Tab {
    constructor(browser, program, number) {
        super();
        this.#browser = browser;
        this.#program = program;
        this.#number = number;
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
        return this.ask("evaluate", { script: `return JSON.stringify((await ${value}) ?? null)` });
    }

    goto(address) {
        return this.ask("goto", { address });
    }

    reload() {
        return this.ask("reload");
    }

    /** As a script goes back: what WebKit takes for a machine's deed, its own button passes over. */
    back() {
        return this.evaluate(() => history.back());
    }

    close() {
        return this.ask("close");
    }

    async hide() {
        await this.#browser.newTab();
        await this.until("it is out of sight", () => document.hidden);
    }

    async show() {
        await this.ask("show");
        await this.until("it is in sight", () => !document.hidden);
    }

    async key(name) {
        await this.#untilHeard("keyup", 1, () => this.ask("key", { name }));
    }

    async type(text) {
        for (const character of text) {
            await this.key(character === "\n" ? "Enter" : character);
        }
    }

    async touch(phase, places) {
        const awaited = phase === "move" ? 0 : places.length;
        await this.#untilHeard(`touch${phase}`, awaited, () => this.ask("touch", { phase, places }));
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
        return Buffer.from(await this.ask("picture"), "base64");
    }

    ask(what, values) {
        return this.#program.ask(what, { tab: this.#number, ...values });
    }

    #browser;
    #program;
    #number;
    #heard = {};
}
