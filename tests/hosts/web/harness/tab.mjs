import { writeFile } from "node:fs/promises";
import { createRequire } from "node:module";
import { basename, join } from "node:path";
import { setTimeout as sleep } from "node:timers/promises";
import { engine } from "./engine.mjs";
import { Picture } from "./formats.mjs";
import { until } from "./until.mjs";

const axe = createRequire(import.meta.url)("axe-core");

const frame = 16;
const fewestSteps = 6;
let pictures = 0;

/**
 * A page of the phone, and the fingers on it. Places are [x, y] in points, durations are milliseconds.
 *
 * An engine's own tab has besides:
 *     evaluate(function, argument)  the function's answer, or what its promise resolves to, from inside the page
 *     goto(address), reload(), back(), close()
 *     hide(), show()                another tab is in front, and then this one
 *     key(name), type(text)         keys as KeyboardEvent names them, "Alt+ArrowUp", too
 *     touch(phase, places)          "start", "move" or "end" of all the fingers that are down
 *     screenshot()                  a PNG
 * and calls onLine(text) for each line that the page says, onFault(text) for each complaint, onRequest(address).
 */
export class Tab {
    /** Runs a function in the page, as often as it takes for its answer to be true. The page may change meanwhile. */
    until(what, predicate, argument) {
        return until(what, () => this.evaluate(predicate, argument).catch((error) => error));
    }

    async tap(place) {
        await this.press([place]);
        await sleep(60);
        await this.release();
    }

    /** Puts fingers down, one or more. They stay until release(). */
    async press(places) {
        this.#fingers = places;
        await this.touch("start", places);
    }

    /** Moves the fingers that are down there, at an even speed. */
    async move(places, duration = 300) {
        const from = this.#fingers;
        const begin = Date.now();
        // However slow the machine is, it is a movement and no leap.
        for (let part = 0, step = 1; part < 1; ++step) {
            await sleep(frame);
            part = Math.min(1, (Date.now() - begin) / duration, step / fewestSteps);
            this.#fingers = from.map((start, finger) =>
                start.map((value, axis) => value + (places[finger][axis] - value) * part));
            await this.touch("move", this.#fingers);
        }
    }

    async release() {
        const places = this.#fingers;
        this.#fingers = [];
        await this.touch("end", places);
    }

    /** From one place to the other, where the finger rests before it lets go: nothing goes on moving. */
    async drag(from, to) {
        await this.press([from]);
        await this.move([to]);
        // The page has seen the movement, however late, before the rest begins.
        await this.evaluate(() => {});
        await sleep(150);
        await this.release();
    }

    /** From one place to the other, let go while it moves. */
    async flick(from, to) {
        await this.press([from]);
        await this.move([to], 120);
        await this.release();
    }

    /** Two fingers at once, from their places to two others. */
    async pinch(from, to) {
        await this.press(from);
        await this.move(to);
        await sleep(100);
        await this.release();
    }

    /** Taps the middle of the element that a selector finds. */
    async tapOn(selector) {
        const { x, y, width, height } = await this.evaluate((wanted) =>
            document.querySelector(wanted).getBoundingClientRect().toJSON(), selector);
        await this.tap([x + width / 2, y + height / 2]);
    }

    /** The texts of all elements that a selector finds. */
    texts(selector) {
        return this.evaluate((wanted) =>
            Array.from(document.querySelectorAll(wanted), ({ textContent }) => textContent), selector);
    }

    /** What is on the screen now, in the screen's pixels. */
    async picture() {
        return Picture.of(await this.screenshot());
    }

    /** Leaves a picture where there is a folder for it: one more of this file of tests. */
    async leavePicture() {
        const folder = process.env.VELMORATH_PICTURES;
        if (folder) {
            const name = [basename(process.argv[1], ".test.mjs"), engine, ++pictures].join("-");
            await writeFile(join(folder, `${name}.png`), await this.screenshot());
        }
    }

    /** What would keep people from using this screen, in words. */
    async obstacles() {
        const { violations } = await this.evaluate(new Function(`${axe.source};return axe.run()`));
        return violations
            .filter(({ impact }) => impact === "serious" || impact === "critical")
            .flatMap(({ help, nodes }) => nodes.map(({ html }) => `${help}: ${html}`));
    }

    #fingers = [];
    onLine = (_line) => {};
    onFault = (_fault) => {};
    onRequest = (_address) => {};
}
