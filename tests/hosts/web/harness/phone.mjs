import { mkdtemp, rm } from "node:fs/promises";
import { tmpdir } from "node:os";
import { join } from "node:path";

/** Which browser the tests are run in. */
export const engine = process.env.VELMORATH_ENGINE ?? "chromium";

const { Browser } = await import(engine === "webkit" ? "./webkit.mjs" : "./puppeteer.mjs");

/** For a test that only this engine can be asked for. @param {string} reason what the others' drivers lack */
export function only(name, reason) {
    return { skip: engine === name ? false : `only ${name}: ${reason}` };
}

/** For what no engine does in its own way. */
export const sameEverywhere = only("chromium", "it is the same everywhere");

/** A browser on a phone: a profile that outlives it, and a record of what went wrong in its pages. */
export class Phone {
    /** `changes` are those of the browser's options that differ from a phone's: see the driver's file. */
    static async start(changes = {}) {
        const phone = new Phone();
        phone.#profile = await mkdtemp(join(tmpdir(), "velmorath-phone-"));
        phone.#changes = changes;
        await phone.startAgain();
        return phone;
    }

    /** A new browser with the profile of the one that is gone. */
    async startAgain() {
        this.browser = await Browser.start(this.#profile, { engine, ...this.#changes });
    }

    /** In every tab that is opened from now on, a page runs this function before everything else. */
    addScript(script) {
        this.#scripts.push(script);
    }

    /** A new tab, with the page at the address in it when there is one. A page runs these functions first, too. */
    async open(address, ...scripts) {
        const tab = await this.browser.newTab([...this.#scripts, ...scripts]);
        tab.onFault = (fault) => this.faults.push(fault);
        tab.onRequest = (requested) => this.requests.push(requested);
        if (address) {
            await tab.goto(address);
        }
        return tab;
    }

    /** The browser is gone at once, without a chance to put anything in order. */
    kill() {
        return this.browser.kill();
    }

    /** Closes all tabs. Fails when anything went wrong in a page that no test took off the record. */
    async rest() {
        await this.browser.closeTabs();
        this.#scripts = [];
        this.requests = [];
        const faults = this.faults.splice(0);
        if (faults.length) {
            throw new Error(`The pages complained:\n${faults.join("\n")}`);
        }
    }

    async stop() {
        await this.browser.close();
        await rm(this.#profile, { recursive: true, force: true, maxRetries: 10 });
    }

    #profile = "";
    #changes = {};
    #scripts = [];
    browser = null;
    faults = [];
    requests = [];
}
