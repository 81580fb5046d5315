/**
 * How many device pixels a length in points takes. The browser's own word counts, as it knows how it rounds, but
 * not while it only pretends to have another screen.
 * @param {number} length @param {number} [exact]
 */
function wholePixels(length, exact = NaN) {
    const pixels = length * devicePixelRatio;
    const isPlausible = Math.abs(exact - pixels) < 1;
    return Math.max(1, isPlausible ? exact : Math.round(pixels));
}

/** The canvas: its size in points and device pixels, and when the next frame is drawn on it. */
export class Screen {
    #canvas;
    #isWanted = false;
    #isScheduled = false;
    #holds = 0;
    #mustPaintAll = true;
    #onPainted = () => {};
    /** Resolves when there is something on the canvas. @type {Promise<void>} */
    painted = new Promise((resolve) => {
        this.#onPainted = resolve;
    });
    #stillness = matchMedia("(prefers-reduced-motion: reduce)");
    width = 1;
    height = 1;
    scale = 1;
    /** Draws a frame: what changed, or everything. @type {(everything: boolean) => void} */
    onFrame = () => {};
    /** The size or the scale is another one, and the canvas is empty. */
    onChange = () => {};
    /** A frame was drawn. */
    onFrameDone = () => {};

    /** @param {HTMLCanvasElement} canvas */
    constructor(canvas) {
        this.#canvas = canvas;
        this.#measure();
    }

    /** From now on changes of the size are seen. */
    observe() {
        this.#canvas.addEventListener("contextrestored", () => this.requestWholeFrame());
        const observer = new ResizeObserver((entries) => this.#resized(entries.at(-1)));
        try {
            observer.observe(this.#canvas, { box: "device-pixel-content-box" });
        } catch {
            observer.observe(this.#canvas);
            this.#watchDensity();
        }
    }

    /** Where the observer counts points, another screen with other pixels is told by this alone. */
    #watchDensity() {
        matchMedia(`(resolution: ${devicePixelRatio}dppx)`).addEventListener("change", () => {
            this.#resized();
            this.#watchDensity();
        }, { once: true });
    }

    get reducesMotion() {
        return this.#stillness.matches;
    }

    requestFrame() {
        this.#isWanted = true;
        this.#schedule();
    }

    /** Asks for a frame in which all of the screen is drawn. */
    requestWholeFrame() {
        this.#mustPaintAll = true;
        this.requestFrame();
    }

    /** No frame is shown before this promise is settled. @param {Promise<unknown>} promise */
    holdFrames(promise) {
        ++this.#holds;
        const release = () => {
            --this.#holds;
            this.#schedule();
        };
        promise.then(release, release);
    }

    #schedule() {
        if (!this.#isWanted || this.#isScheduled || this.#holds > 0) {
            return;
        }
        this.#isScheduled = true;
        requestAnimationFrame(() => {
            this.#isScheduled = false;
            if (this.#isWanted && this.#holds === 0) {
                this.#makeFrame();
            }
        });
    }

    #makeFrame() {
        this.#isWanted = false;
        const everything = this.#mustPaintAll;
        this.#mustPaintAll = false;
        this.onFrame(everything);
        this.#onPainted();
        this.onFrameDone();
    }

    /** @param {ResizeObserverEntry} [entry] */
    #measure(entry) {
        const box = this.#canvas.getBoundingClientRect();
        const exact = entry?.devicePixelContentBoxSize?.[0];
        const pixelWidth = wholePixels(box.width, exact?.inlineSize);
        const pixelHeight = wholePixels(box.height, exact?.blockSize);
        const scale = box.width > 0 ? pixelWidth / box.width : devicePixelRatio;
        const isNew = pixelWidth !== this.#canvas.width || pixelHeight !== this.#canvas.height
            || Math.abs(scale - this.scale) > 0.001;
        if (!isNew) {
            return false;
        }
        // Setting the size, even to the same one, empties the canvas.
        this.#canvas.width = pixelWidth;
        this.#canvas.height = pixelHeight;
        this.scale = scale;
        this.width = pixelWidth / scale;
        this.height = pixelHeight / scale;
        return true;
    }

    /** @param {ResizeObserverEntry} [entry] */
    #resized(entry) {
        if (!this.#measure(entry)) {
            return;
        }
        this.onChange();
        this.#mustPaintAll = true;
        // At once, before the browser shows the empty canvas: nothing but the size has changed.
        if (this.#holds === 0) {
            this.#makeFrame();
        } else {
            this.requestFrame();
        }
    }
}
