/**
 * The database of the files, and which page owns them.
 *
 * A page that opens the files takes the next number as their owner. Each transaction ends by saying in a probe
 * that the number after the page's own is free: where another page has it, the database refuses this, and with it
 * the whole transaction. So a page that was replaced, however long it was frozen, writes nothing. It is the last
 * thing that a transaction does, as Firefox, once it was told to commit, overlooks what fails before that.
 */

const databaseVersion = 2;
/** Of the database that all folders of a site had. */
const formerVersion = 1;

// Where the probe stands among the owners.
const probe = 0;

// A number may be forgotten when nobody can be left whom it would stop.
const keptOwners = 1000;

// How many milliseconds the browser may take to open the database, or for a transaction.
const patience = 15000;

/**
 * Rejects when this takes too long: a frozen page, or a disk that hangs, may stand in the way for good.
 * @template T @param {Promise<T>} promise @param {number} time @param {() => void} [onTooLate] @returns {Promise<T>}
 */
export function inTime(promise, time, onTooLate) {
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

/** Rejects with an AbortError where there is none that is to be there already. @param {string} name @param {boolean} mustExist */
export function openDatabase(name, mustExist) {
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
export async function isUsed(database) {
    let count = 0;
    await inTransaction(database, "readonly", (transaction) => {
        const counting = transaction.objectStore("owners").count();
        counting.onsuccess = () => {
            count = counting.result;
        };
    });
    return count > 0;
}

/**
 * Becomes the files' owner and reads them all. Who was their owner before stays it, unless somebody else has
 * become it since. Files that are brought along are put where no page has had any.
 * @param {IDBDatabase} database @param {number} formerOwner @param {Map<string, Uint8Array>} [brought]
 */
export async function claim(database, formerOwner, brought = new Map()) {
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

/**
 * False when another page has become the files' owner: nothing is changed then.
 * @param {IDBDatabase} database @param {number} owner @param {(files: IDBObjectStore) => void} change
 */
export async function asOwner(database, owner, change) {
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
