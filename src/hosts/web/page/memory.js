/**
 * Under which names the browser keeps what is the page's: its folder's address is part of them, as the same page in
 * another folder of the site is another list.
 */

/** Of the database, the caches and the lock; the service worker has it from its own address. */
export const ownName = `velmorath ${new URL(".", import.meta.url).href}`;

/** @param {string} what */
const nameOf = (what) => `${ownName} ${what}`;

/** Whether something has happened that is to happen once. @param {string} what */
export function hasHappened(what) {
    try {
        return localStorage.getItem(nameOf(what)) !== null;
    } catch {
        return false;
    }
}

/** @param {string} what */
export function rememberThat(what) {
    try {
        localStorage.setItem(nameOf(what), "yes");
    } catch {
        // A browser that keeps nothing lets it happen again.
    }
}
