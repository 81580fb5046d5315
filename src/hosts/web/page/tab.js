/**
 * One page of those that are open holds the list; the others may take it over. Who loses it is asked to
 * finish first, but cannot be waited for: a page in the background may be frozen.
 */

import { ownName } from "./memory.js";

/** Of the one list that a site had before each folder had its own. */
export const formerName = "velmorath";

/**
 * Takes the list if no other page holds it. Resolves to { held: true }, or to { held: false, takeOver },
 * where takeOver() resolves when the list is this page's.
 *
 * onTaken is called once, when another page takes the list from this one, and returns a promise: the other
 * page gets the list when it has settled, but waits no longer than `wait` milliseconds for that.
 *
 * A browser that cannot tell who holds the list (where the page's address is not a secure one) lets every
 * page hold it.
 * @param {{ onTaken: () => Promise<void>, wait?: number }} options
 * @returns {Promise<{ held: true } | { held: false, takeOver: () => Promise<void> }>}
 */
export async function holdList({ onTaken, wait = 3000 }) {
    if (!navigator.locks || (await acquire({ ifAvailable: true }, onTaken))) {
        return { held: true };
    }
    /** @type {Promise<void> | null} */
    let takingOver = null;
    const takeOver = () => (takingOver ??= takeList(onTaken, wait));
    return { held: false, takeOver };
}

/** @param {() => Promise<void>} onTaken @param {number} wait */
async function takeList(onTaken, wait) {
    askForList(ownName);
    try {
        await acquire({ signal: AbortSignal.timeout(wait) }, onTaken);
    } catch {
        await acquire({ steal: true }, onTaken);
    }
}

/** @param {string} name */
function askForList(name) {
    const channel = new BroadcastChannel(name);
    channel.postMessage("take over");
    channel.close();
}

/**
 * Does something while no page holds the list that all folders had once: who holds it is asked to finish first.
 * @template T @param {() => Promise<T>} body @param {number} [wait] @returns {Promise<T>}
 */
export async function whileFormerListRests(body, wait = 3000) {
    if (!navigator.locks) {
        return body();
    }
    askForList(formerName);
    try {
        return await navigator.locks.request(formerName, { signal: AbortSignal.timeout(wait) }, body);
    } catch (error) {
        // Browsers have either name for it.
        if (!["AbortError", "TimeoutError"].includes(error.name)) {
            throw error;
        }
        return navigator.locks.request(formerName, { steal: true }, body);
    }
}

// Resolves to whether this page has the list now. It keeps it until another page takes it.
/** @param {LockOptions} options @param {() => Promise<void>} onTaken @returns {Promise<boolean>} */
function acquire(options, onTaken) {
    return new Promise((resolve, reject) => {
        /** @type {BroadcastChannel | null} */
        let channel = null;
        /** @type {Promise<void> | null} */
        let taken = null;
        const take = () => {
            channel?.close();
            taken ??= onTaken();
            return taken;
        };
        const hold = (/** @type {Lock | null} */ lock) => {
            resolve(lock !== null);
            if (!lock) {
                return null;
            }
            const opened = new BroadcastChannel(ownName);
            channel = opened;
            return new Promise((release) => {
                opened.onmessage = () => release(take());
            });
        };
        // Once it is held, only a page that would not wait any longer makes this fail.
        navigator.locks.request(ownName, options, hold).catch((error) => (channel ? take() : reject(error)));
    });
}
