/**
 * The program's files: all of them in memory, and in a database of the browser's. What is asked for in one
 * task goes to the database in one transaction, so that it gets there whole or not at all, and goes there
 * without waiting for any answer, so that it gets there even when the page is closed in the next moment.
 *
 * A page that opens the files takes the next number as their owner. Each transaction ends by saying in a probe
 * that the number after the page's own is free: where another page has it, the database refuses this, and with it
 * the whole transaction. So a page that was replaced, however long it was frozen, writes nothing. It is the last
 * thing that a transaction does, as Firefox, once it was told to commit, overlooks what fails before that.
 *
 * What the database refuses, or is too slow to take, is kept and tried again: alone after some time, and together
 * with what is written next.
 */

import { ownName } from "./memory.js";
import { formerName, whileFormerListRests } from "./tab.js";

const databaseVersion = 2;
/** Of the database that all folders of a site had. */
const formerVersion = 1;

// Where the probe stands among the owners.
const probe = 0;

// A number may be forgotten when nobody can be left whom it would stop.
const keptOwners = 1000;

// How many milliseconds the browser may take to open the database, or for a transaction.
const patience = 15000;

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

// Rejects when this takes too long: a frozen page, or a disk that hangs, may stand in the way for good.
/** @template T @param {Promise<T>} promise @param {number} time @param {() => void} [onTooLate] @returns {Promise<T>} */
function inTime(promise, time, onTooLate) {
    let timer = 0;
    /** @type {Promise<never>} */
    const tooLate = new Promise((_, reject) => {
        timer = setTimeout(() => {
            onTooLate?.();
            reject(new Error("the browser does not answer"));
        }, time);
    });
    return Promise.race([promise, tooLate]).finally(() => clearTimeout(timer));
}

/** @param {Map<string, Uint8Array>} one @param {Map<string, Uint8Array>} other */
function isSame(one, other) {
    return one.size === other.size && Array.from(one).every(([path, bytes]) => other.get(path) === bytes);
}

/** Rejects with an AbortError where there is none that is to be there already. @param {string} name @param {boolean} mustExist */
function openDatabase(name, mustExist) {
    /** @type {Promise<IDBDatabase>} */
    const opening = new Promise((resolve, reject) => {
        const request = indexedDB.open(name, mustExist ? formerVersion : databaseVersion);
        request.onupgradeneeded = ({ oldVersion }) => {
            const transaction = /** @type {IDBTransaction} */ (request.transaction);
            if (mustExist) {
                transaction.abort();
                return;
            }
            if (oldVersion === 0) {
                request.result.createObjectStore("files");
                request.result.createObjectStore("owners");
            }
            transaction.objectStore("owners").createIndex("number", "number", { unique: true });
        };
        request.onsuccess = () => {
            // Whoever deletes the database, or makes it anew for a later version, waits for this.
            request.result.onversionchange = () => request.result.close();
            resolve(request.result);
        };
        request.onerror = () => reject(request.error);
    });
    return inTime(opening, patience, () => opening.then((database) => database.close(), () => {}));
}

/** Whether some page has had its files in it. @param {IDBDatabase} database */
async function isUsed(database) {
    let count = 0;
    await inTransaction(database, "readonly", (transaction) => {
        const counting = transaction.objectStore("owners").count();
        counting.onsuccess = () => {
            count = counting.result;
        };
    });
    return count > 0;
}

// Once all folders of a site had one list. The first of them that is opened since takes it along: a copy is in its own
// database before the other one is emptied, and nobody else can write there any more.
/** @param {IDBDatabase} database */
async function claimWithFormerFiles(database) {
    const former = await openDatabase(formerName, true).catch((error) => {
        if (error.name === "AbortError") {
            return null;
        }
        throw error;
    });
    if (!former) {
        return claim(database, 0);
    }
    return whileFormerListRests(async () => {
        const { owner, files } = await claim(former, 0);
        const claimed = await claim(database, 0, files);
        await asOwner(former, owner, (store) => store.clear());
        former.close();
        return claimed;
    });
}

// Becomes the files' owner and reads them all. Who was their owner before stays it, unless somebody else has
// become it since.
// Files that are brought along are put where no page has had any.
/** @param {IDBDatabase} database @param {number} formerOwner @param {Map<string, Uint8Array>} [brought] */
async function claim(database, formerOwner, brought = new Map()) {
    /** @type {Map<string, Uint8Array>} */
    const files = new Map();
    const claimed = { isOwned: true, owner: formerOwner, files };
    await inTransaction(database, "readwrite", (transaction) => {
        const owners = transaction.objectStore("owners");
        const store = transaction.objectStore("files");
        const search = owners.openKeyCursor(null, "prev");
        search.onsuccess = () => {
            const newest = Number(search.result?.key ?? formerOwner);
            if (formerOwner > 0 && newest !== formerOwner) {
                claimed.isOwned = false;
                return;
            }
            claimed.owner = formerOwner > 0 ? formerOwner : newest + 1;
            owners.delete(probe);
            owners.put({ number: claimed.owner }, claimed.owner);
            owners.delete(IDBKeyRange.upperBound(claimed.owner - keptOwners));
            if (claimed.owner === 1) {
                brought.forEach((bytes, path) => store.put(bytes, path));
            }
            const paths = store.getAllKeys();
            const contents = store.getAll();
            contents.onsuccess = () => {
                paths.result.forEach((path, place) => files.set(String(path), contents.result[place]));
            };
        };
    });
    return claimed;
}

// False when another page has become the files' owner: nothing is changed then.
/** @param {IDBDatabase} database @param {number} owner @param {(files: IDBObjectStore) => void} change */
async function asOwner(database, owner, change) {
    const successor = owner + 1;
    let isRefused = false;
    try {
        await inTransaction(database, "readwrite", (transaction) => {
            change(transaction.objectStore("files"));
            const probing = transaction.objectStore("owners").put({ number: successor }, probe);
            probing.onerror = () => {
                isRefused = probing.error?.name === "ConstraintError";
            };
            transaction.commit();
        });
    } catch (error) {
        if (!isRefused) {
            throw error;
        }
    }
    return !isRefused;
}

/** @param {IDBDatabase} database @param {IDBTransactionMode} mode @param {(transaction: IDBTransaction) => void} body */
function inTransaction(database, mode, body) {
    const transaction = database.transaction(["files", "owners"], mode, { durability: "strict" });
    /** @type {Promise<void>} */
    const ending = new Promise((resolve, reject) => {
        transaction.oncomplete = () => resolve();
        transaction.onabort = () => reject(transaction.error ?? new Error("the browser gave it up"));
        try {
            body(transaction);
        } catch (error) {
            reject(error);
            transaction.abort();
        }
    });
    return inTime(ending, patience, () => ending.catch(() => {}));
}

/** @param {Error} error */
function reasonOf(error) {
    return error.message || error.name;
}
