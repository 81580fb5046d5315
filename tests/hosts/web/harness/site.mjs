import { after, afterEach, beforeEach } from "node:test";
import { Phone } from "./phone.mjs";
import { Server } from "./server.mjs";

/**
 * A server that has the page, and a phone to open it on. Each test of a file has a server of its own, and so an
 * address under which nothing is kept: the servers stay until the end, and no two get the same. The phone is the
 * same, as a browser takes long to start.
 */
export class Site {
    /** `changes` as for a phone. */
    static forEachTest(changes = {}) {
        const site = new Site();
        beforeEach(() => site.#begin(changes));
        afterEach(() => site.#end());
        after(() => site.#stop());
        return site;
    }

    /** Another phone in the place of the one that is there, until the test ends. */
    async changePhone(changes) {
        await this.phone.rest();
        await this.phone.stop();
        this.phone = await Phone.start(changes);
        this.#isChanged = true;
    }

    get address() {
        return this.server.address;
    }

    async #begin(changes) {
        this.server = await Server.start();
        this.#servers.push(this.server);
        this.phone ??= await Phone.start(changes);
    }

    async #end() {
        // Some runners do this after a test that is left out, too.
        const { phone } = this;
        let isAsBefore = false;
        try {
            await phone?.rest();
            isAsBefore = !this.#isChanged;
        } finally {
            if (!isAsBefore) {
                this.phone = null;
                this.#isChanged = false;
                await phone.stop();
            }
        }
    }

    async #stop() {
        await this.phone?.stop();
        await Promise.all(this.#servers.map((server) => server.stop()));
    }

    #servers = [];
    #isChanged = false;
    server = null;
    phone = null;
}
