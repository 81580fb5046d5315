/** Hands keys to the program while no text is edited. What it has no use for stays the browser's. */

/** In the order of HostKey. */
const keys = ["ArrowUp", "ArrowDown", "ArrowLeft", "ArrowRight", "Home", "End", "PageUp", "PageDown", "Tab", "Enter",
    " ", "Escape", "Insert", "F2", "Delete", "Undo", "Redo"];

export const insertKey = keys.indexOf("Insert");
export const escapeKey = keys.indexOf("Escape");

/** @typedef {(key: number, shift: boolean, alt: boolean, isRepeat: boolean) => boolean} Press */

/**
 * The name under which the program knows this key. Browsers keep Ctrl+N for themselves: N alone does it, but only
 * in the list, as people who speak to their machine press letters by mistake.
 * @param {KeyboardEvent} event
 */
function keyName(event) {
    if (event.key === "Backspace") {
        return "Delete";
    }
    const letter = event.key.toLowerCase();
    const hasControl = event.ctrlKey || event.metaKey;
    if (letter === "z" && hasControl && !event.altKey) {
        return event.shiftKey ? "Redo" : "Undo";
    }
    const isInList = event.target instanceof Element && event.target.closest('[role="list"]') !== null;
    return letter === "n" && !event.altKey && (isInList || hasControl) ? "Insert" : event.key;
}

/**
 * `press(key, shift, alt, isRepeat)` says whether the program used the key.
 * @param {() => boolean} isEditing @param {Press} press
 */
export function listenToKeys(isEditing, press) {
    let hasUsedSpace = false;
    addEventListener("keydown", (event) => {
        const name = keyName(event);
        const key = keys.indexOf(name);
        const isBrowsers = (event.ctrlKey || event.metaKey) && !["Insert", "Undo", "Redo"].includes(name);
        if (key < 0 || isBrowsers || event.isComposing || isEditing()) {
            return;
        }
        const isUsed = press(key, event.shiftKey, event.altKey, event.repeat);
        if (isUsed) {
            event.preventDefault();
        }
        hasUsedSpace = isUsed && event.key === " ";
    });
    addEventListener("keyup", (event) => {
        // Some browsers press the button that has the focus when Space is let go, whatever became of its press.
        if (event.key === " " && hasUsedSpace) {
            event.preventDefault();
        }
    });
}
