/**
 * The program's files: all of them in memory, and in a database of the browser's. What is asked for in one
 * task goes to the database in one transaction, so that it gets there whole or not at all, and goes there
 * without waiting for any answer, so that it gets there even when the page is closed in the next moment.
 *
 * A page that opens the files takes the next number as their owner. Each transaction begins by taking the
 * number after the page's own, and gives it back: where another page has it, the database refuses this, and
 * with it the whole transaction. So a page that was replaced, however long it was frozen, writes nothing.
 */

const databaseName = "velmorath";
const databaseVersion = 1;

// A number may be forgotten when nobody can be left whom it would stop.
const keptOwners = 1000;

// How many milliseconds the browser may take to open the database.
const patience = 15000;

/** Loads all files and becomes their owner. Rejects with an Error that says why it cannot. */
export function openStorage() {
    return Storage.open();
}

export class Storage {
    /** Called once, when a write was refused because another page owns the files now. */
    onLost = () => {};

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
    /** @type {Promise<void> | null} */
    #nextWrite = null;
    /** @type {Set<Promise<void>>} */
    #writesUnderWay = new Set();
    #isLost = false;
    #isClosed = false;
    #hasAskedToPersist = false;

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
     * Error that says why they are not; the file is then as it was.
     * @param {string} path @param {Uint8Array} bytes
     */
    replace(path, bytes) {
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
        let aside = `${path}.unreadable`;
        for (let number = 2; this.exists(aside); number += 1) {
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

    /** Writes that are under way still end; later ones are refused. */
    close() {
        this.#isClosed = true;
        this.#disconnect();
    }

    #write() {
        if (!this.#nextWrite) {
            const write = Promise.resolve().then(() => {
                this.#nextWrite = null;
                return this.#store();
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
            this.#files = new Map(this.#stored);
        }
    }

    async #store() {
        try {
            await this.#storeOrReconnect();
        } catch (error) {
            throw new Error(`Cannot write: ${reasonOf(error)}`, { cause: error });
        }
        if (!this.#hasAskedToPersist) {
            this.#hasAskedToPersist = true;
            navigator.storage?.persist?.().catch(() => {});
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
        const files = new Map(this.#files);
        const successor = this.#owner + 1;
        let isRefused = false;
        try {
            await inTransaction(database, (transaction) => {
                const owners = transaction.objectStore("owners");
                const adding = owners.add(true, successor);
                adding.onerror = () => {
                    isRefused = adding.error?.name === "ConstraintError";
                };
                owners.delete(successor);
                this.#putChanges(transaction.objectStore("files"), files);
                transaction.commit();
            });
        } catch (error) {
            throw isRefused ? this.#lose() : error;
        }
        this.#stored = files;
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
        const database = await openDatabase();
        const { isOwned, owner, files } = await claim(database, this.#owner);
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
/** @template T @param {Promise<T>} promise @param {() => void} onTooLate @returns {Promise<T>} */
function patiently(promise, onTooLate) {
    let timer = 0;
    /** @type {Promise<never>} */
    const tooLate = new Promise((_, reject) => {
        timer = setTimeout(() => {
            onTooLate();
            reject(new Error("the browser does not answer"));
        }, patience);
    });
    return Promise.race([promise, tooLate]).finally(() => clearTimeout(timer));
}

function openDatabase() {
    /** @type {Promise<IDBDatabase>} */
    const opening = new Promise((resolve, reject) => {
        const request = indexedDB.open(databaseName, databaseVersion);
        request.onupgradeneeded = () => {
            request.result.createObjectStore("files");
            request.result.createObjectStore("owners");
        };
        request.onsuccess = () => {
            // Whoever deletes the database, or makes it anew for a later version, waits for this.
            request.result.onversionchange = () => request.result.close();
            resolve(request.result);
        };
        request.onerror = () => reject(request.error);
    });
    return patiently(opening, () => opening.then((database) => database.close(), () => {}));
}

// Becomes the files' owner and reads them all. Who was their owner before stays it, unless somebody else has
// become it since.
/** @param {IDBDatabase} database @param {number} formerOwner */
async function claim(database, formerOwner) {
    /** @type {Map<string, Uint8Array>} */
    const files = new Map();
    const claimed = { isOwned: true, owner: formerOwner, files };
    await inTransaction(database, (transaction) => {
        const owners = transaction.objectStore("owners");
        const search = owners.openKeyCursor(null, "prev");
        search.onsuccess = () => {
            const newest = Number(search.result?.key ?? formerOwner);
            if (formerOwner > 0 && newest !== formerOwner) {
                claimed.isOwned = false;
                return;
            }
            claimed.owner = formerOwner > 0 ? formerOwner : newest + 1;
            owners.put(true, claimed.owner);
            owners.delete(IDBKeyRange.upperBound(claimed.owner - keptOwners));
        };
        const store = transaction.objectStore("files");
        const paths = store.getAllKeys();
        const contents = store.getAll();
        contents.onsuccess = () => {
            paths.result.forEach((path, place) => files.set(String(path), contents.result[place]));
        };
    });
    return claimed;
}

/** @param {IDBDatabase} database @param {(transaction: IDBTransaction) => void} body */
function inTransaction(database, body) {
    const transaction = database.transaction(["files", "owners"], "readwrite", { durability: "strict" });
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
    return patiently(ending, () => ending.catch(() => {}));
}

/** @param {Error} error */
function reasonOf(error) {
    return error.message || error.name;
}
