import { createRequire } from "node:module";
import { setTimeout as sleep } from "node:timers/promises";
import { Picture } from "./picture.mjs";

const axe = createRequire(import.meta.url)("axe-core");

const frame = 16;

/** A page of the phone, and the fingers on it. Places are [x, y] in points, durations are milliseconds. */
export class Tab {
    static async on(page) {
        const tab = new Tab();
        tab.page = page;
        tab.#session = await page.context().newCDPSession(page);
        return tab;
    }

    /** Runs a function in the page, as often as it takes for its answer to be true. The page may change meanwhile. */
    async until(what, predicate, argument) {
        const end = Date.now() + 15000;
        let answer;
        do {
            await sleep(30);
            answer = await this.page.evaluate(predicate, argument).catch((error) => error);
        } while (answer !== true && Date.now() < end);
        if (answer !== true) {
            throw new Error(`Waited in vain until ${what}`, { cause: answer });
        }
    }

    async tap(place) {
        await this.press([place]);
        await sleep(60);
        await this.release();
    }

    /** Puts fingers down, one or more. They stay until release(). */
    async press(places) {
        this.#fingers = places;
        await this.#send("touchStart", places);
    }

    /** Moves the fingers that are down there, at an even speed. */
    async move(places, duration = 300) {
        const from = this.#fingers;
        const begin = Date.now();
        for (let part = 0; part < 1; ) {
            await sleep(frame);
            part = Math.min(1, (Date.now() - begin) / duration);
            this.#fingers = from.map((start, finger) =>
                start.map((value, axis) => value + (places[finger][axis] - value) * part));
            await this.#send("touchMove", this.#fingers);
        }
    }

    async release() {
        this.#fingers = [];
        await this.#send("touchEnd", []);
    }

    /** From one place to the other, where the finger rests before it lets go: nothing goes on moving. */
    async drag(from, to, duration = 300) {
        await this.press([from]);
        await this.move([to], duration);
        await sleep(150);
        await this.release();
    }

    /** From one place to the other, let go while it moves. */
    async flick(from, to, duration = 120) {
        await this.press([from]);
        await this.move([to], duration);
        await this.release();
    }

    /** Two fingers at once, from their places to two others. */
    async pinch(from, to, duration = 400) {
        await this.press(from);
        await this.move(to, duration);
        await sleep(100);
        await this.release();
    }

    /** What is on the screen now, in the screen's pixels; kept in a file, too, when there is a folder for it. */
    async picture(name) {
        const folder = process.env.VELMORATH_PICTURES;
        const path = folder && name ? `${folder}/${name}.png` : undefined;
        return new Picture(await this.page.screenshot({ path }));
    }

    /** What would keep people from using this screen, in words. */
    async obstacles() {
        await this.page.evaluate(axe.source);
        const { violations } = await this.page.evaluate(() => globalThis.axe.run());
        return violations
            .filter(({ impact }) => impact === "serious" || impact === "critical")
            .flatMap(({ help, nodes }) => nodes.map(({ html }) => `${help}: ${html}`));
    }

    /** A command of the browser's own debugging protocol. */
    command(name, parameters) {
        return this.#session.send(name, parameters);
    }

    async #send(type, places) {
        const touchPoints = places.map(([x, y], id) => ({ x, y, id }));
        await this.#session.send("Input.dispatchTouchEvent", { type, touchPoints });
    }

    #session;
    #fingers = [];
    page = null;
}
