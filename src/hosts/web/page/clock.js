/** Wakes the program at the moment that it asked for. */
export class Clock {
    #timer = 0;
    #time = Infinity;
    #wake;

    /** @param {() => void} wake */
    constructor(wake) {
        this.#wake = wake;
    }

    /**
     * In seconds of performance.now(); infinity for never. Replaces what was asked for before.
     * @param {number} time
     */
    wakeAt(time) {
        clearTimeout(this.#timer);
        this.#time = time;
        this.#arm();
    }

    #arm() {
        if (this.#time === Infinity) {
            return;
        }
        // A timer counts in 32 bits: a moment far away is reached in several waits.
        const longestWait = 86_400_000;
        const wait = Math.ceil(this.#time * 1000 - performance.now());
        this.#timer = setTimeout(() => this.#fired(), Math.min(Math.max(wait, 0), longestWait));
    }

    #fired() {
        if (performance.now() / 1000 < this.#time) {
            this.#arm();
            return;
        }
        this.#time = Infinity;
        this.#wake();
    }
}
