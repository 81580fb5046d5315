/**
 * What can be done with one thing, to be chosen from: with arrows, fingers, a mouse or by a screen reader. There is
 * at most one. It closes without a choice at Escape, at Tab, at a press beside it, and when the page gets another
 * size.
 */
export class Menu {
    #cover;
    #box = document.createElement("div");
    #onClose = () => {};

    /** @param {HTMLElement} cover an empty element over everything else */
    constructor(cover) {
        this.#cover = cover;
        this.#box.setAttribute("role", "menu");
        cover.append(this.#box);
        cover.addEventListener("click", () => this.close());
        cover.addEventListener("keydown", (event) => this.#keyDown(event));
        addEventListener("resize", () => this.close());
    }

    get isOpen() {
        return !this.#cover.hidden;
    }

    /**
     * `below` is what it belongs to. `onChoice(name)` is called after `onClose()`, which is called in any case.
     * @param {{
     *     label: string, names: string[], below: DOMRect, onChoice: (name: string) => void, onClose: () => void
     * }} menu
     */
    open({ label, names, below, onChoice, onClose }) {
        this.close();
        this.#onClose = onClose;
        this.#box.setAttribute("aria-label", label);
        this.#box.replaceChildren(...names.map((name) => {
            const item = document.createElement("button");
            item.setAttribute("role", "menuitem");
            item.tabIndex = -1;
            item.textContent = name;
            item.addEventListener("click", (event) => {
                event.stopPropagation();
                this.close();
                onChoice(name);
            });
            return item;
        }));
        this.#cover.hidden = false;
        const cover = this.#cover.getBoundingClientRect();
        const lowest = cover.height - this.#box.offsetHeight;
        this.#box.style.top = `${Math.max(0, Math.min(below.bottom - cover.top, lowest))}px`;
        this.#focus(0);
    }

    /** False when there was none. */
    close() {
        if (!this.isOpen) {
            return false;
        }
        this.#cover.hidden = true;
        this.#onClose();
        return true;
    }

    /** @param {number} place counted around, from the first */
    #focus(place) {
        const items = /** @type {HTMLElement[]} */ ([...this.#box.children]);
        items.at(place % items.length)?.focus();
    }

    /** @param {KeyboardEvent} event */
    #keyDown(event) {
        // The program's keys rest meanwhile; Enter and Space press the item, as the browser does it.
        event.stopPropagation();
        const place = [...this.#box.children].findIndex((item) => item === document.activeElement);
        const next = { ArrowDown: place + 1, ArrowUp: place - 1, Home: 0, End: -1 }[event.key];
        if (next !== undefined) {
            this.#focus(next);
        } else if (event.key === "Escape" || event.key === "Tab") {
            this.close();
        } else {
            return;
        }
        event.preventDefault();
    }
}
