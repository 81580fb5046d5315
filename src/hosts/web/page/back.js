/** The state of the history's entry that stands for what is open on the screen. */
const openState = "open";

/**
 * A phone's back gesture, while there is something on the screen that it can close. When there is nothing, it leaves
 * the page. Some browsers tell of it; in the others an entry of the page's own in the history is what it leaves.
 */
export class Back {
    #close;
    #isWanted = false;
    /** @type {CloseWatcher | null} */
    #watcher = null;
    #isGoing = false;

    /** `close()` closes what is on top, or ends what is typed. @param {() => void} close */
    constructor(close) {
        this.#close = close;
        addEventListener("popstate", () => this.#moved());
    }

    /** Whether there is something to close. @param {boolean} isWanted */
    watch(isWanted) {
        this.#isWanted = isWanted;
        if (globalThis.CloseWatcher) {
            this.#updateWatcher();
        } else {
            this.#updateEntry();
        }
    }

    #updateWatcher() {
        if (this.#isWanted && !this.#watcher) {
            this.#watcher = new CloseWatcher();
            this.#watcher.onclose = () => {
                this.#watcher = null;
                this.#close();
            };
        } else if (!this.#isWanted) {
            this.#watcher?.destroy();
            this.#watcher = null;
        }
    }

    #updateEntry() {
        const isThere = history.state === openState;
        if (this.#isGoing || this.#isWanted === isThere) {
            return;
        }
        if (this.#isWanted) {
            history.pushState(openState, "");
        } else {
            this.#isGoing = true;
            history.back();
        }
    }

    #moved() {
        const isGesture = !this.#isGoing && this.#isWanted && history.state !== openState;
        this.#isGoing = false;
        if (isGesture) {
            this.#isWanted = false;
            this.#close();
        } else {
            this.watch(this.#isWanted);
        }
    }
}
