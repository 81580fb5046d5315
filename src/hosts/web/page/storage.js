/**
 * The program's files: all of them in memory, and in a database of the browser's. What is asked for in one
 * task goes to the database in one transaction, so that it gets there whole or not at all, and goes there
 * without waiting for any answer, so that it gets there even when the page is closed in the next moment.
 *
 * What the database refuses, or is too slow to take, is kept and tried again: alone after some time, and together
 * with what is written next.
 */

import { asOwner, claim, inTime, isUsed, openDatabase } from "./database.js";
import { claimWithFormerFiles } from "./former.js";
import { ownName } from "./memory.js";

// How many milliseconds a write may take until it counts as failed. It may come to its end later.
const writePatience = 3000;

// How many milliseconds pass until what could not be written is tried again.
const retryPause = 5000;

/** Loads all files and becomes their owner. Rejects with an Error that says why it cannot. */
export function openStorage() {
    return Storage.open();
}

export class Storage {
    /** Called once, when a write was refused because another page owns the files now. */
    onLost = () => {};
    /**
     * Called when it begins or ends that something is not in the database that should be.
     * @type {(isUnsaved: boolean) => void}
     */
    onUnsaved = () => {};

    /** @type {IDBDatabase | null} */
    #database = null;
    /** @type {Promise<void> | null} */
    #connecting = null;
    #owner = 0;
    /**
     * As the program sees them. Bytes never change.
     * @type {Map<string, Uint8Array>}
     */
    #files = new Map();
    /**
     * As the database is known to hold them.
     * @type {Map<string, Uint8Array>}
     */
    #stored = new Map();
    /**
     * As they should be in the database when that refused some of them.
     * @type {Map<string, Uint8Array> | null}
     */
    #kept = null;
    #isUnsaved = false;
    #retryTimer = 0;
    /** @type {Promise<void> | null} */
    #nextWrite = null;
    /** @type {Set<Promise<void>>} */
    #writesUnderWay = new Set();
    /** How many writes have not come to their end, also those that count as failed. */
    #storesUnderWay = 0;
    #isLost = false;
    #isClosed = false;

    static async open() {
        const storage = new Storage();
        try {
            await storage.#connect();
        } catch (error) {
            throw new Error(`Cannot open the files: ${reasonOf(error)}`, { cause: error });
        }
        storage.#files = new Map(storage.#stored);
        return storage;
    }

    /** @param {string} path */
    exists(path) {
        return this.#files.has(path);
    }

    /** The whole file, not to be changed; null when there is none. @param {string} path */
    read(path) {
        return this.#files.get(path) ?? null;
    }

    /**
     * Puts a copy of these bytes in the file's place. Resolves when they are on the disk. Rejects with an
     * Error that says why they are not; the file is then as it was until it was tried again.
     * @param {string} path @param {Uint8Array} bytes
     */
    replace(path, bytes) {
        this.#recall();
        this.#files.set(path, bytes.slice());
        return this.#write();
    }

    /**
     * Gives a file a name that no other file has, in the same transaction as what else this task writes:
     * when that fails, the file has its old name again.
     * @param {string} path
     */
    setAside(path) {
        const bytes = this.read(path);
        if (!bytes) {
            throw new Error(`Cannot set aside ${path}: there is no such file`);
        }
        this.#recall();
        let aside = `${path}.unreadable`;
        for (let number = 2; this.exists(aside) && this.read(aside) !== bytes; number += 1) {
            aside = `${path}.unreadable-${number}`;
        }
        this.#files.set(aside, bytes);
        this.#files.delete(path);
        this.#write();
    }

    /** No write is under way. */
    get isSettled() {
        return this.#writesUnderWay.size === 0;
    }

    /** Resolves when no write is under way. */
    async settled() {
        while (!this.isSettled) {
            await Promise.allSettled(this.#writesUnderWay);
        }
    }

    /** Something is not in the database that should be there. */
    get isUnsaved() {
        return this.#isUnsaved;
    }

    /** Tries once more to write what could not be written. */
    tryAgain() {
        clearTimeout(this.#retryTimer);
        if (this.#kept && this.#storesUnderWay === 0) {
            this.#recall();
            // What comes of it is told by onUnsaved.
            this.#write().catch(() => {});
        } else if (this.#kept) {
            this.#tryAgainSoon();
        }
    }

    /** Writes that are under way still end; later ones are refused. */
    close() {
        this.#isClosed = true;
        clearTimeout(this.#retryTimer);
        this.#disconnect();
    }

    #tryAgainSoon() {
        clearTimeout(this.#retryTimer);
        if (!this.#isClosed && !this.#isLost) {
            this.#retryTimer = setTimeout(() => this.tryAgain(), retryPause);
        }
    }

    /** What could not be written belongs to what is written next. */
    #recall() {
        this.#files = this.#kept ?? this.#files;
        this.#kept = null;
    }

    #write() {
        if (!this.#nextWrite) {
            const write = Promise.resolve().then(() => {
                this.#nextWrite = null;
                return inTime(this.#store(), writePatience);
            });
            this.#nextWrite = write;
            this.#writesUnderWay.add(write);
            const end = () => this.#end(write);
            write.then(end, end);
        }
        return this.#nextWrite;
    }

    /** @param {Promise<void>} write */
    #end(write) {
        this.#writesUnderWay.delete(write);
        // A later write may still succeed, and it writes what this one could not.
        if (this.isSettled) {
            this.#compare(this.#files);
        }
    }

    /** Tells, and keeps what is not in the database yet. @param {Map<string, Uint8Array>} wanted */
    #compare(wanted) {
        const isUnsaved = !isSame(wanted, this.#stored);
        this.#kept = isUnsaved ? wanted : null;
        this.#files = new Map(this.#stored);
        if (isUnsaved) {
            this.#tryAgainSoon();
        }
        if (isUnsaved !== this.#isUnsaved) {
            this.#isUnsaved = isUnsaved;
            this.onUnsaved(isUnsaved);
        }
    }

    async #store() {
        ++this.#storesUnderWay;
        try {
            await this.#storeOrReconnect();
        } catch (error) {
            throw new Error(`Cannot write: ${reasonOf(error)}`, { cause: error });
        } finally {
            --this.#storesUnderWay;
        }
    }

    async #storeOrReconnect() {
        if (this.#database) {
            try {
                await this.#transact(this.#database);
                return;
            } catch (error) {
                if (this.#isLost || this.#isClosed || error.name === "QuotaExceededError") {
                    throw error;
                }
                // The connection may be what failed: a browser cuts it when the site's data are deleted.
                this.#disconnect();
            }
        }
        await this.#connect();
        await this.#transact(/** @type {IDBDatabase} */ (this.#database));
    }

    /** @param {IDBDatabase} database */
    async #transact(database) {
        const files = new Map(this.#kept ?? this.#files);
        const isOwned = await asOwner(database, this.#owner, (store) => this.#putChanges(store, files));
        if (!isOwned) {
            throw this.#lose();
        }
        this.#stored = files;
        if (this.isSettled) {
            // Nobody waited for it any longer.
            this.#compare(this.#kept ?? this.#files);
        }
    }

    // Measured by what the database surely holds, and not by earlier writes that may fail yet.
    /** @param {IDBObjectStore} store @param {Map<string, Uint8Array>} files */
    #putChanges(store, files) {
        for (const [path, bytes] of files) {
            if (this.#stored.get(path) !== bytes) {
                store.put(bytes, path);
            }
        }
        for (const path of this.#stored.keys()) {
            if (!files.has(path)) {
                store.delete(path);
            }
        }
    }

    #lose() {
        if (!this.#isLost) {
            this.#isLost = true;
            this.#disconnect();
            this.onLost();
        }
        return new Error("another page owns the files now");
    }

    #connect() {
        this.#connecting ??= this.#connectOnce().finally(() => {
            this.#connecting = null;
        });
        return this.#connecting;
    }

    async #connectOnce() {
        if (this.#isLost) {
            throw this.#lose();
        }
        if (this.#isClosed) {
            throw new Error("the files are closed");
        }
        const database = await openDatabase(ownName, false);
        const { isOwned, owner, files } = this.#owner > 0 || (await isUsed(database))
            ? await claim(database, this.#owner)
            : await claimWithFormerFiles(database);
        if (!isOwned) {
            database.close();
            throw this.#lose();
        }
        this.#owner = owner;
        this.#stored = files;
        this.#database = database;
        if (this.#isClosed) {
            this.#disconnect();
        }
    }

    #disconnect() {
        this.#database?.close();
        this.#database = null;
    }
}

/** @param {Map<string, Uint8Array>} one @param {Map<string, Uint8Array>} other */
function isSame(one, other) {
    return one.size === other.size && Array.from(one).every(([path, bytes]) => other.get(path) === bytes);
}

/** @param {Error} error */
function reasonOf(error) {
    return error.message || error.name;
}
