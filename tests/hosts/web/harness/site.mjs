import { after, afterEach, before, beforeEach } from "node:test";
import { Phone } from "./phone.mjs";
import { Server } from "./server.mjs";

/** A server that has the page, and a phone to open it on. */
export class Site {
    /** Another one for each test of the file. `changes` as for a phone. */
    static forEachTest(changes) {
        const site = new Site();
        beforeEach(() => site.#start(changes));
        afterEach(() => site.#stop());
        return site;
    }

    /** One for all tests of the file. It is there for tests, but not yet for other hooks that run before all. */
    static forAllTests(changes) {
        const site = new Site();
        before(() => site.#start(changes));
        after(() => site.#stop());
        return site;
    }

    /** Another phone in the place of the one that is there. */
    async changePhone(changes) {
        await this.phone.stop();
        this.phone = await Phone.start(changes);
    }

    get address() {
        return this.server.address;
    }

    async #start(changes) {
        this.server = await Server.start();
        this.phone = await Phone.start(changes);
    }

    async #stop() {
        try {
            await this.phone.stop();
        } finally {
            await this.server.stop();
        }
    }

    server = null;
    phone = null;
}
