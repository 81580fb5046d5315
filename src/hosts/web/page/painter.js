/** Draws a frame: reads the numbers that CommandBuffer.h describes, and does what they say on a canvas. */

/** @import { Pictures } from "./pictures.js" */
/** @import { Texts } from "./texts.js" */

const decoder = new TextDecoder("utf-8", { ignoreBOM: true });

/** In the order of CommandBuffer::Command. */
const commands = /** @type {const} */ (
    ["save", "restore", "transform", "clip", "fill", "fillGradient", "stroke", "shadow", "text", "image"]);
const noWords = new Float64Array();

/** @type {Map<number, string>} */
const colors = new Map();

/** A style for the canvas from 0xRRGGBBAA. @param {number} packed */
export function cssColor(packed) {
    let color = colors.get(packed);
    if (!color) {
        const [red, green, blue, alpha] = [24, 16, 8, 0].map((shift) => (packed >>> shift) & 255);
        color = `rgba(${red}, ${green}, ${blue}, ${alpha / 255})`;
        // Fading texts come in hundreds of shades.
        if (colors.size > 1000) {
            colors.clear();
        }
        colors.set(packed, color);
    }
    return color;
}

export class Painter {
    #context;
    #texts;
    #pictures;
    #words = noWords;
    #at = 0;

    /** @param {HTMLCanvasElement} canvas @param {Texts} texts @param {Pictures} pictures */
    constructor(canvas, texts, pictures) {
        this.#context = /** @type {CanvasRenderingContext2D} */ (canvas.getContext("2d", { alpha: false }));
        this.#texts = texts;
        this.#pictures = pictures;
    }

    /** @param {Float64Array<ArrayBuffer>} words */
    paint(words) {
        this.#words = words;
        this.#at = 0;
        while (this.#at < words.length) {
            this[commands[this.#next()]]();
        }
        this.#words = noWords;
    }

    #next() {
        return this.#words[this.#at++];
    }

    #nextColor() {
        return cssColor(this.#next());
    }

    #nextText() {
        const length = this.#next();
        const start = this.#words.byteOffset + this.#at * 8;
        this.#at += Math.ceil(length / 8);
        return decoder.decode(new Uint8Array(this.#words.buffer, start, length));
    }

    /** Makes a rectangle, maybe with round corners, the current path. Returns its top and height. */
    #nextPath() {
        const [x, y, width, height, radius] = [this.#next(), this.#next(), this.#next(), this.#next(), this.#next()];
        this.#context.beginPath();
        if (radius > 0) {
            this.#context.roundRect(x, y, width, height, radius);
        } else {
            this.#context.rect(x, y, width, height);
        }
        return { top: y, height };
    }

    save() {
        this.#context.save();
    }

    restore() {
        this.#context.restore();
    }

    transform() {
        this.#context.setTransform(this.#next(), this.#next(), this.#next(), this.#next(), this.#next(), this.#next());
    }

    clip() {
        this.#nextPath();
        this.#context.clip();
    }

    fill() {
        this.#nextPath();
        this.#context.fillStyle = this.#nextColor();
        this.#context.fill();
    }

    fillGradient() {
        const { top, height } = this.#nextPath();
        const gradient = this.#context.createLinearGradient(0, top, 0, top + height);
        for (let count = this.#next(); count > 0; --count) {
            gradient.addColorStop(this.#next(), this.#nextColor());
        }
        this.#context.fillStyle = gradient;
        this.#context.fill();
    }

    stroke() {
        this.#nextPath();
        this.#context.lineWidth = this.#next();
        this.#context.strokeStyle = this.#nextColor();
        this.#context.stroke();
    }

    shadow() {
        const context = this.#context;
        context.save();
        // The rectangle itself stays outside the canvas; shadows know nothing of transforms.
        const { a, b, c, d, e, f } = context.getTransform();
        const away = 2 * context.canvas.width + 10_000;
        context.setTransform(a, b, c, d, e - away, f);
        this.#nextPath();
        context.shadowColor = this.#nextColor();
        context.shadowOffsetX = this.#next() + away;
        context.shadowOffsetY = this.#next();
        context.shadowBlur = this.#next();
        context.fillStyle = "black";
        context.fill();
        context.restore();
    }

    text() {
        const rect = { x: this.#next(), y: this.#next(), width: this.#next(), height: this.#next() };
        const size = this.#next();
        const bold = this.#next() !== 0;
        const style = { alignment: this.#next(), wraps: this.#next() !== 0 };
        const color = this.#nextColor();
        const font = { family: this.#nextText(), size, bold };
        this.#texts.draw(this.#context, this.#nextText(), rect, font, style, color);
    }

    image() {
        const picture = this.#pictures.bitmap(this.#next());
        const [x, y, width, height] = [this.#next(), this.#next(), this.#next(), this.#next()];
        this.#context.globalAlpha = this.#next();
        if (picture) {
            this.#context.drawImage(picture, x, y, width, height);
        }
        this.#context.globalAlpha = 1;
    }
}
