import { mkdtemp, rm } from "node:fs/promises";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { after, afterEach, beforeEach } from "node:test";
import { engine } from "./engine.mjs";
import { Server } from "./server.mjs";

const { Browser } = await import(engine === "webkit" ? "./webkit.mjs" : "./puppeteer.mjs");

/**
 * A server that has the page, and a phone's browser to open it in, with a record of what went wrong there. Each test of
 * a file has a server of its own, and so an address under which nothing is kept: the servers stay until the end, and no
 * two get the same. The browser is the same, as it takes long to start.
 */
export class Site {
    /** `changes` are those of the browser's options that differ from a phone's: see the driver's file. */
    static forEachTest(changes = {}) {
        const site = new Site();
        beforeEach(() => site.#begin(changes));
        afterEach(() => site.#end());
        after(() => site.#stop());
        return site;
    }

    get address() {
        return this.server.address;
    }

    /** In every tab that is opened from now on, a page runs this function before everything else. */
    addScript(script) {
        this.#scripts.push(script);
    }

    /** A new tab, with the page at the address in it when there is one. A page runs these functions first, too. */
    async open(address, ...scripts) {
        const tab = await this.#browser.newTab([...this.#scripts, ...scripts]);
        tab.onFault = (fault) => this.faults.push(fault);
        tab.onRequest = (requested) => this.requests.push(requested);
        if (address) {
            await tab.goto(address);
        }
        return tab;
    }

    /** The browser is gone at once, without a chance to put anything in order; a new one has its profile. */
    async killBrowser() {
        await this.#browser.kill();
        this.#browser = await Browser.start(this.#profile, this.#changes);
    }

    /** Another phone in the place of the one that is there, until the test ends. */
    async changePhone(changes) {
        await this.#stopPhone();
        await this.#startPhone(changes);
        this.#isChanged = true;
    }

    async #startPhone(changes) {
        this.#profile = await mkdtemp(join(tmpdir(), "velmorath-phone-"));
        this.#changes = changes;
        this.#browser = await Browser.start(this.#profile, this.#changes);
        this.#isChanged = false;
    }

    async #stopPhone() {
        // Some runners come here after a test that is left out, too.
        await this.#browser?.close();
        this.#browser = null;
        await rm(this.#profile, { recursive: true, force: true, maxRetries: 10 });
    }

    async #begin(changes) {
        this.server = await Server.start();
        this.#servers.push(this.server);
        if (!this.#browser) {
            await this.#startPhone(changes);
        }
    }

    /** Closes all tabs. Fails when anything went wrong in a page that no test took off the record. */
    async #end() {
        let isInOrder = false;
        try {
            await this.#browser?.closeTabs();
            const faults = this.faults.splice(0);
            if (faults.length) {
                throw new Error(`The pages complained:\n${faults.join("\n")}`);
            }
            isInOrder = !this.#isChanged;
        } finally {
            this.#scripts = [];
            this.requests = [];
            if (!isInOrder) {
                await this.#stopPhone();
            }
        }
    }

    async #stop() {
        await this.#stopPhone();
        await Promise.all(this.#servers.map((server) => server.stop()));
    }

    #servers = [];
    #browser = null;
    #profile = "";
    #changes = {};
    #scripts = [];
    #isChanged = false;
    server = null;
    faults = [];
    requests = [];
}
