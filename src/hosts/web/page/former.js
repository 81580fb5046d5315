/**
 * Once all folders of a site had one list. The first of them that is opened since takes it along: a copy is in its own
 * database before the other one is emptied, and nobody else can write there any more.
 */

import { asOwner, claim, openDatabase } from "./database.js";
import { formerName, whileFormerListRests } from "./tab.js";

/** As claim(), for a page whose database nobody has used yet. @param {IDBDatabase} database */
export async function claimWithFormerFiles(database) {
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
