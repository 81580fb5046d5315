/**
 * Measures and draws text exactly where the browser's own editors show it: a note must not move when its
 * editing starts. So everything is laid out in points, as a page is: where letters are moved to whole pixels, a font
 * of twice the size is not twice as wide.
 */

/** @import { Screen } from "./screen.js" */

/** @typedef {{ family: string, size: number, bold: boolean }} Font */
/** @typedef {{ x: number, y: number, width: number, height: number }} Rect */
/** @typedef {{ text: string, fromTheRight: boolean }} Line */

const leading = 1.2;
/** In characters: many lines, but not more than a browser looks through in no time. */
const longestPiece = 2000;
const strongCharacter = /[\p{L}\p{Nl}\u07c0-\u07c9\u061c\u200e\u200f]/u;
const rightToLeft = /[\u200f\u0590-\u08ff\ufb1d-\ufdff\ufe70-\ufeff\u{10800}-\u{10fff}\u{1e800}-\u{1efff}]/u;

/** The direction of the first strong character. @param {string} text */
export function readsFromTheRight(text) {
    const first = strongCharacter.exec(text);
    return first !== null && rightToLeft.test(first[0]);
}

/** @param {Font} font */
function cssFamily(font) {
    return font.family ? `${JSON.stringify(font.family)}, system-ui, sans-serif` : "system-ui, sans-serif";
}

/** @param {Font} font @param {number} [scale] */
export function cssFont(font, scale = 1) {
    return `${font.bold ? "bold " : ""}${font.size * scale}px ${cssFamily(font)}`;
}

/**
 * As "left" and "right", for a text that reads this way.
 * @param {number} alignment @param {boolean} fromTheRight
 */
function side(alignment, fromTheRight) {
    return /** @type {const} */ ([fromTheRight ? "right" : "left", "left", "center", "right"])[alignment];
}

/** What stands in one line: nothing breaks it. @param {string} text */
function inOneLine(text) {
    return text.replace(/[\u0000-\u001f\u2028\u2029]/g, " ");
}

/** @template T */
class Cache {
    /** @type {Map<string, T>} */
    #entries = new Map();
    #limit;

    /** @param {number} limit */
    constructor(limit) {
        this.#limit = limit;
    }

    /** @param {string} key @param {() => T} make */
    find(key, make) {
        let value = this.#entries.get(key);
        if (value === undefined) {
            value = make();
            if (this.#entries.size >= this.#limit) {
                this.#entries.delete(/** @type {string} */ (this.#entries.keys().next().value));
            }
        } else {
            this.#entries.delete(key);
        }
        this.#entries.set(key, value);
        return value;
    }
}

export class Texts {
    #screen;
    #context = /** @type {CanvasRenderingContext2D} */ (document.createElement("canvas").getContext("2d"));
    #graphemes = new Intl.Segmenter(undefined, { granularity: "grapheme" });
    #paragraph = document.createElement("div");
    #words = document.createTextNode("");
    #line = document.createElement("div");
    /** An empty box in the line, which stands on its base line. */
    #foot = document.createElement("span");
    /** @type {Cache<number>} */
    #lineHeights = new Cache(50);
    /** @type {Cache<number>} */
    #baselines = new Cache(50);
    /** @type {Cache<string>} */
    #lines = new Cache(300);
    /** @type {Cache<Line[]>} */
    #paragraphs = new Cache(20);

    /**
     * `box` is an element to lay out text in: in the page, but never seen.
     * @param {Screen} screen @param {HTMLElement} box
     */
    constructor(screen, box) {
        this.#screen = screen;
        this.#paragraph.append(this.#words);
        this.#line.append("x", this.#foot);
        box.append(this.#paragraph, this.#line);
    }

    /**
     * Width and height in points, and 1 when it reads from the right.
     * @param {string} text @param {Font} font @param {number} wrapWidth
     */
    measure(text, font, wrapWidth) {
        const fromTheRight = readsFromTheRight(text) ? 1 : 0;
        const lineHeight = this.lineHeight(font);
        if (wrapWidth > 0) {
            const lines = this.#wrapped(text, font, wrapWidth);
            const widest = lines.reduce((most, line) => Math.max(most, this.#width(line.text, font)), 0);
            return [widest, lines.length * lineHeight, fromTheRight];
        }
        return [this.#width(inOneLine(text), font), lineHeight, fromTheRight];
    }

    /** Whole device pixels, in points. @param {Font} font */
    lineHeight(font) {
        const { scale } = this.#screen;
        const css = cssFont(font, scale);
        return this.#lineHeights.find(`${css}|${scale}`, () => {
            this.#context.font = css;
            const { fontBoundingBoxAscent, fontBoundingBoxDescent } = this.#context.measureText("x");
            const smallest = font.size * scale * leading;
            return Math.round(Math.max(fontBoundingBoxAscent + fontBoundingBoxDescent, smallest)) / scale;
        });
    }

    /**
     * `rect` is in points of the context's transform. Alignment is a number as in CGTextAlignment.
     * @param {CanvasRenderingContext2D} context
     * @param {string} text
     * @param {Rect} rect
     * @param {Font} font
     * @param {{ alignment: number, wraps: boolean }} style
     * @param {string} color
     */
    draw(context, text, rect, font, { alignment, wraps }, color) {
        const { width, height } = rect;
        context.save();
        context.translate(rect.x, rect.y);
        context.font = cssFont(font);
        context.fillStyle = color;
        if (wraps) {
            this.#drawParagraphs(context, this.#wrapped(text, font, width), font, alignment, width, height);
        } else {
            const line = { text: this.#fitting(text, font, width), fromTheRight: readsFromTheRight(text) };
            drawLine(context, line, alignment, width, this.#baseline(font, height));
        }
        context.restore();
    }

    /**
     * @param {CanvasRenderingContext2D} context
     * @param {Line[]} lines
     * @param {Font} font
     * @param {number} alignment
     * @param {number} width
     * @param {number} height
     */
    #drawParagraphs(context, lines, font, alignment, width, height) {
        const lineHeight = this.lineHeight(font);
        const { d, f } = context.getTransform();
        const first = Math.max(0, Math.floor(-f / d / lineHeight));
        const end = Math.min(height, (context.canvas.height - f) / d);
        context.beginPath();
        context.rect(-lineHeight, 0, width + 2 * lineHeight, height);
        context.clip();
        const baseline = this.#baseline(font, lineHeight);
        for (let i = first; i < lines.length && i * lineHeight < end; ++i) {
            drawLine(context, lines[i], alignment, width, i * lineHeight + baseline);
        }
    }

    /**
     * Where the browser puts the base line in a line of this height.
     * @param {Font} font @param {number} height
     */
    #baseline(font, height) {
        const { scale } = this.#screen;
        const css = cssFont(font);
        return this.#baselines.find(`${css}|${height}|${scale}`, () => {
            this.#line.style.font = css;
            this.#line.style.lineHeight = `${height}px`;
            return this.#foot.getBoundingClientRect().bottom - this.#line.getBoundingClientRect().top;
        });
    }

    /** @param {string} line @param {Font} font */
    #width(line, font) {
        this.#context.font = cssFont(font);
        return this.#context.measureText(line).width;
    }

    /**
     * The line, or as much of its beginning as fits and an ellipsis.
     * @param {string} text @param {Font} font @param {number} width
     */
    #fitting(text, font, width) {
        // No screen has room for more characters than this.
        const beginning = text.slice(0, 5000);
        return this.#lines.find(`${cssFont(font, this.#screen.scale)}|${width}|${beginning}`, () => {
            const line = inOneLine(beginning);
            const halfPixel = 0.5 / this.#screen.scale;
            if (this.#width(line, font) <= width + halfPixel) {
                return line;
            }
            const ends = [...this.#graphemes.segment(line)].map(({ index }) => index);
            let low = 0;
            let high = ends.length - 1;
            while (low < high) {
                const middle = Math.ceil((low + high) / 2);
                if (this.#width(`${line.slice(0, ends[middle])}…`, font) <= width) {
                    low = middle;
                } else {
                    high = middle - 1;
                }
            }
            return `${line.slice(0, ends[low]).trimEnd()}…`;
        });
    }

    /**
     * The lines into which the browser breaks a text at this width in points, each with its paragraph's direction.
     * @param {string} text @param {Font} font @param {number} width
     */
    #wrapped(text, font, width) {
        return this.#paragraphs.find(`${cssFont(font, this.#screen.scale)}|${width}|${text}`, () => {
            const { style } = this.#paragraph;
            style.font = cssFont(font);
            style.lineHeight = `${this.lineHeight(font)}px`;
            style.width = `${width}px`;
            const lines = text.split("\n").flatMap((paragraph) => {
                const fromTheRight = readsFromTheRight(paragraph);
                const isShort = !paragraph.includes("\t") && this.#width(paragraph, font) < width - 1;
                const broken = isShort ? [paragraph] : brokenLines(this.#words, paragraph);
                return broken.map((line) => ({ text: line, fromTheRight }));
            });
            this.#words.data = "";
            return lines;
        });
    }
}

/**
 * @param {CanvasRenderingContext2D} context
 * @param {Line} line
 * @param {number} alignment
 * @param {number} width
 * @param {number} baseline
 */
function drawLine(context, { text, fromTheRight }, alignment, width, baseline) {
    context.direction = fromTheRight ? "rtl" : "ltr";
    const end = side(alignment, fromTheRight);
    context.textAlign = end;
    const x = { left: 0, center: width / 2, right: width }[end];
    context.fillText(text, x, baseline);
}

/**
 * The lines of a paragraph, as the element around this node breaks them.
 * @param {Text} node @param {string} paragraph
 */
function brokenLines(node, paragraph) {
    const lines = [];
    let start = 0;
    do {
        // Piece by piece, each from the start of a line: browsers look through all lines for the place of one.
        const piece = paragraph.slice(start, start + longestPiece);
        const isLast = start + piece.length === paragraph.length;
        node.data = piece;
        const ends = lineEnds(node, piece);
        if (!isLast && ends.length > 1) {
            // This line may go on in the next piece.
            ends.pop();
        }
        let from = 0;
        for (const end of ends) {
            lines.push(piece.slice(from, end));
            from = end;
        }
        start += Math.max(from, 1);
    } while (start < paragraph.length);
    return lines;
}

/** Where the lines of the node's text end; at least one. @param {Text} node @param {string} text */
function lineEnds(node, text) {
    const range = document.createRange();
    const top = (/** @type {number} */ index) => {
        range.setStart(node, index);
        range.setEnd(node, index + 1);
        return range.getBoundingClientRect().top;
    };
    const ends = [];
    let start = 0;
    while (start < text.length) {
        const here = top(start) + 0.5;
        // Strides that double, then halves: a line is short and the text may be long.
        let low = start;
        let stride = 16;
        while (low + stride < text.length && top(low + stride) <= here) {
            low += stride;
            stride *= 2;
        }
        let high = Math.min(low + stride, text.length);
        while (low + 1 < high) {
            const middle = (low + high) >> 1;
            if (top(middle) <= here) {
                low = middle;
            } else {
                high = middle;
            }
        }
        ends.push(high);
        start = high;
    }
    return ends.length > 0 ? ends : [0];
}
