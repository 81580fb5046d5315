/** What the page is opened for, other than to show the list: the manifest names it in addresses, or hands over files. */

import { contents } from "./documents.js";

/**
 * What another program shares as one text. A title is of no use without what it is the title of: both are one note.
 * @param {URLSearchParams} shared
 */
function sharedText(shared) {
    const [title, text, address] = ["title", "text", "url"].map((name) => shared.get(name)?.trim() ?? "");
    const body = [text, address].filter((part) => part).join("\n");
    return title && body ? `- [ ] ${[title, body].join("\n").replaceAll("\n", "\n  ")}` : title || body;
}

/** Milliseconds until it is tried again what the program had no use for while it showed something else. */
const pause = 1000;

export class Launches {
    /** Done one after the other; each says whether the program had a use for it. @type {(() => boolean)[]} */
    #waiting = [];
    #timer = 0;
    #add;
    #open;

    /** @param {() => boolean} add a new note @param {(bytes: Uint8Array | undefined) => boolean} open a file, or what cannot be read */
    constructor(add, open) {
        this.#add = add;
        this.#open = open;
    }

    #goOn() {
        clearTimeout(this.#timer);
        while (this.#waiting[0]?.()) {
            this.#waiting.shift();
        }
        if (this.#waiting.length > 0) {
            this.#timer = setTimeout(() => this.#goOn(), pause);
        }
    }

    /** Opens these one after the other. @param {Promise<Uint8Array | undefined>[]} files */
    async open(files) {
        for (const file of files) {
            const bytes = await file;
            this.#waiting.push(() => this.#open(bytes));
        }
        this.#goOn();
    }

    /** To be called when the list is on the screen. */
    listen() {
        const opened = location.href;
        this.#take(opened, () => history.replaceState(history.state, "", location.pathname));
        let isFirst = true;
        globalThis.launchQueue?.setConsumer(async ({ targetURL, files }) => {
            // The page was opened for the first one.
            if (targetURL && !(isFirst && targetURL === opened)) {
                this.#take(targetURL, () => {});
            }
            isFirst = false;
            await this.open((files ?? []).map((handle) => handle.getFile().then(contents, () => undefined)));
        });
        this.#goOn();
    }

    /** @param {string} address @param {() => void} onDone */
    #take(address, onDone) {
        const wanted = new URL(address).searchParams;
        const text = sharedText(wanted);
        const errand = wanted.has("add") ? this.#add : () => this.#open(new TextEncoder().encode(text));
        if (wanted.has("add") || text) {
            this.#waiting.push(() => {
                const isDone = errand();
                if (isDone) {
                    onDone();
                }
                return isDone;
            });
        }
    }
}
