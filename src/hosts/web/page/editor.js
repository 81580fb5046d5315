/** The browser's own text editing, laid over the field that is edited. */

import { cssColor } from "./painter.js";
import { cssFont } from "./texts.js";

/** @import { Screen } from "./screen.js" */
/** @import { Font, Rect, Texts } from "./texts.js" */

/**
 * @typedef {{
 *     text: string, label: string, font: Font, color: number, alignment: number, isMultiline: boolean,
 *     hasDarkKeyboard: boolean, hasDoneKey: boolean
 * }} Editing
 */
/** In points: from the field's corner, and from the text's beginning. */
/** @typedef {{ tap: { x: number, y: number } | null, scrolled: number }} Start */

/** An <input> cannot hold line breaks. The note's stay in it as this character, which looks like a space. */
const lineSeparator = "\u2028";

/** Some phones enlarge the whole page when a smaller text is edited. Such a text is shrunk on the screen. */
const smallestSize = 16;

/** Where the part of the page ends that the keyboard leaves in sight; enlarging hides some, too. */
/** @param {VisualViewport} viewport */
function keyboardTop({ scale, height, offsetTop }) {
    return scale > 1 ? height * scale : offsetTop + height;
}

/**
 * The clipboard has the line breaks of a row as such.
 * @param {HTMLInputElement} field
 */
function keepLineBreaks(field) {
    const copy = (/** @type {ClipboardEvent} */ event) => {
        const text = field.value.slice(field.selectionStart ?? 0, field.selectionEnd ?? 0);
        if (!text.includes(lineSeparator)) {
            return;
        }
        event.preventDefault();
        event.clipboardData?.setData("text/plain", text.replaceAll(lineSeparator, "\n"));
        if (event.type === "cut") {
            change("delete");
        }
    };
    field.addEventListener("copy", copy);
    field.addEventListener("cut", copy);
    field.addEventListener("paste", (event) => {
        const text = event.clipboardData?.getData("text/plain").replace(/(\r?\n)+$/, "") ?? "";
        if (text.includes("\n")) {
            event.preventDefault();
            change("insertText", text.replaceAll(/\r?\n/g, lineSeparator));
        }
    });
}

/** As if it were typed: the browser can take it back. @param {string} command @param {string} [text] */
function change(command, text) {
    document.execCommand(command, false, text);
}

export class Editor {
    #container;
    #texts;
    #screen;
    #window = document.createElement("div");
    /** @type {HTMLInputElement | HTMLTextAreaElement | null} */
    #field = null;
    #isMultiline = false;
    #knownText = "";
    /** @type {Font} */
    #font = { family: "", size: 0, bold: false };
    #shrink = 1;
    /** @type {{ frame: Rect, clip: Rect, opacity: number } | null} */
    #place = null;
    /** Where the text stands and was tapped, until the field has its place. @type {Start | null} */
    #start = null;
    /** @type {(text: string) => void} */
    onChange = () => {};
    onReturn = () => {};
    onEnd = () => {};

    /** @param {HTMLElement} container @param {Texts} texts @param {Screen} screen */
    constructor(container, texts, screen) {
        this.#container = container;
        this.#texts = texts;
        this.#screen = screen;
        // The keyboard came up or went away, or moved the page to show the field, which is in sight as it is.
        for (const name of ["resize", "scroll"]) {
            visualViewport?.addEventListener(name, () => {
                if (visualViewport?.scale === 1) {
                    scrollTo(0, 0);
                }
                this.#placeField();
            });
        }
    }

    get isEditing() {
        return this.#field !== null;
    }

    /** How far down many lines are scrolled, in points. */
    get scrolled() {
        return (this.#field?.scrollTop ?? 0) * this.#shrink;
    }

    /** @param {Editing & Start} editing */
    begin({ text, label, font, color, alignment, isMultiline, hasDarkKeyboard, hasDoneKey, tap, scrolled }) {
        this.#isMultiline = isMultiline;
        this.#font = font;
        this.#shrink = Math.min(1, font.size / smallestSize);
        this.#place = null;
        const field = document.createElement(isMultiline ? "textarea" : "input");
        field.value = isMultiline ? text : text.replaceAll("\n", lineSeparator);
        field.setAttribute("aria-label", label);
        field.dir = "auto";
        field.enterKeyHint = hasDoneKey ? "done" : "enter";
        field.autocomplete = "off";
        field.setAttribute("autocorrect", "on");
        field.spellcheck = true;
        const { style } = field;
        style.font = cssFont(font, 1 / this.#shrink);
        style.transform = this.#shrink < 1 ? `scale(${this.#shrink})` : "";
        style.color = cssColor(color);
        style.textAlign = ["start", "left", "center", "right"][alignment];
        style.colorScheme = hasDarkKeyboard ? "dark" : "light";
        field.addEventListener("input", () => this.#tellChange(field));
        field.addEventListener("keydown", (event) => this.#keyDown(/** @type {KeyboardEvent} */ (event)));
        if (field instanceof HTMLInputElement) {
            keepLineBreaks(field);
        }
        field.addEventListener("blur", () => this.#left(field));
        this.#field = field;
        this.#knownText = this.#text(field);
        this.#window = document.createElement("div");
        this.#window.append(field);
        this.#container.append(this.#window);
        // Inside the touch that asked for it: only then does a phone show its keyboard.
        field.focus({ preventScroll: true });
        field.setSelectionRange(field.value.length, field.value.length);
        this.#start = { tap, scrolled };
    }

    /**
     * In points of the screen; shown is only what falls inside the clip.
     * @param {Rect} frame @param {Rect} clip @param {number} opacity
     */
    place(frame, clip, opacity) {
        this.#place = { frame, clip, opacity };
        this.#placeField();
    }

    /** Takes the editor away. Returns its text when nobody was told of that yet, else null. */
    end() {
        if (!this.#field) {
            return null;
        }
        const text = this.#text(this.#field);
        this.#remove();
        return text === this.#knownText ? null : text;
    }

    #remove() {
        this.#field = null;
        this.#window.remove();
        this.onEnd();
    }

    /** The page is left: what is typed counts as done. */
    leave() {
        if (!this.#field) {
            return;
        }
        this.#tellChange(this.#field);
        this.onReturn();
    }

    /** @param {HTMLInputElement | HTMLTextAreaElement} field */
    #text(field) {
        return this.#isMultiline ? field.value : field.value.replaceAll(lineSeparator, "\n");
    }

    /** @param {HTMLInputElement | HTMLTextAreaElement} field */
    #tellChange(field) {
        const text = this.#text(field);
        if (text === this.#knownText) {
            return;
        }
        this.#knownText = text;
        this.onChange(text);
    }

    /** @param {KeyboardEvent} event */
    #keyDown(event) {
        // They are the text's, also the one that ends its editing.
        event.stopPropagation();
        // Safari ends a composition before it tells of the key that did it, which has this number then.
        if (event.isComposing || event.keyCode === 229) {
            return;
        }
        const isReturn = event.key === "Enter" && !this.#isMultiline;
        if (isReturn || event.key === "Escape") {
            event.preventDefault();
            this.onReturn();
        } else if (event.key === "Tab") {
            // Nothing else here takes the focus; the text is not left by accident.
            event.preventDefault();
        }
    }

    /**
     * The keyboard's own button takes the focus away; another window only borrows it.
     * @param {HTMLInputElement | HTMLTextAreaElement} field
     */
    #left(field) {
        if (this.#field === field && document.hasFocus()) {
            this.onReturn();
        }
    }

    #placeField() {
        if (!this.#field || !this.#place) {
            return;
        }
        const { frame, clip, opacity } = this.#place;
        const snap = (/** @type {number} */ length) => Math.round(length * this.#screen.scale) / this.#screen.scale;
        const lineHeight = this.#texts.lineHeight(this.#font);
        // Many lines scroll inside what the keyboard leaves of them; one line is wherever its row is.
        const top = this.#container.getBoundingClientRect().top;
        const inSight = visualViewport ? keyboardTop(visualViewport) - top : Infinity;
        const isCovered = this.#isMultiline && inSight > frame.y && inSight < frame.y + frame.height;
        const height = isCovered ? inSight - frame.y : frame.height;
        const { style } = this.#window;
        style.left = `${clip.x}px`;
        style.top = `${clip.y}px`;
        style.width = `${clip.width}px`;
        style.height = `${clip.height}px`;
        style.opacity = String(opacity);
        const field = this.#field.style;
        field.left = `${snap(frame.x) - clip.x}px`;
        field.top = `${snap(frame.y) - clip.y}px`;
        field.width = `${frame.width / this.#shrink}px`;
        field.height = `${height / this.#shrink}px`;
        field.lineHeight = `${(this.#isMultiline ? lineHeight : height) / this.#shrink}px`;
        if (this.#start) {
            this.#startAt(this.#field, this.#start);
            this.#start = null;
        }
    }

    /**
     * The text stands as it was drawn, and the caret goes to where it was tapped; else its end is in sight.
     * @param {HTMLInputElement | HTMLTextAreaElement} field @param {Start} start
     */
    #startAt(field, { tap, scrolled }) {
        field.scrollTop = tap ? scrolled / this.#shrink : field.scrollHeight;
        field.scrollLeft = tap ? 0 : field.scrollWidth;
        if (!tap) {
            return;
        }
        const caret = this.#caretAt(field, tap);
        if (caret !== null) {
            field.setSelectionRange(caret, caret);
        }
    }

    /**
     * The place in the field's text that is nearest to a tap, if the browser tells. As not every one looks into
     * fields, the text stands over its field for as long as it takes.
     * @param {HTMLInputElement | HTMLTextAreaElement} field @param {{ x: number, y: number }} tap
     */
    #caretAt(field, tap) {
        const paragraph = document.createElement("div");
        const words = document.createTextNode(field.value.replaceAll(lineSeparator, " "));
        paragraph.append(words);
        paragraph.dir = "auto";
        paragraph.style.cssText = field.style.cssText;
        paragraph.style.whiteSpace = this.#isMultiline ? "pre-wrap" : "pre";
        this.#window.append(paragraph);
        paragraph.scrollTop = field.scrollTop;
        const box = paragraph.getBoundingClientRect();
        const inside = (/** @type {number} */ length, /** @type {number} */ most) => Math.max(1, Math.min(length, most - 1));
        const [x, y] = [box.x + inside(tap.x, box.width), box.y + inside(tap.y, box.height)];
        const position = document.caretPositionFromPoint?.(x, y);
        const range = position ? null : document.caretRangeFromPoint?.(x, y);
        const isThere = (position?.offsetNode ?? range?.startContainer) === words;
        const place = position?.offset ?? range?.startOffset ?? null;
        // With it, the range leaves its place.
        paragraph.remove();
        return isThere ? place : null;
    }
}
