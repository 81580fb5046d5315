/** Asks the browser to keep the list whatever happens, and says once how to be safe where it will not. */

import { hasHappened, rememberThat } from "./memory.js";
import { showRemark } from "./notice.js";

const toldOfCopies = "has told of copies";

/** Some browsers ask their user, and are not to do so again; on the home screen the answer may be another one. */
async function isKept(/** @type {boolean} */ isInstalled) {
    const { storage } = navigator;
    const asked = isInstalled ? "has asked to keep the list of an app" : "has asked to keep the list";
    if (await storage.persisted()) {
        return true;
    }
    if (hasHappened(asked)) {
        return false;
    }
    rememberThat(asked);
    return storage.persist();
}

/** To be called when a note has been saved. @param {{ copies: string, homeScreen: string }} say */
export async function careForList(say) {
    const isInstalled = matchMedia("(display-mode: standalone)").matches;
    if (!(await isKept(isInstalled).catch(() => false)) && !hasHappened(toldOfCopies)) {
        const text = isInstalled ? say.copies : `${say.copies} ${say.homeScreen}`;
        showRemark({ text, button: "OK", onButton: () => rememberThat(toldOfCopies) });
    }
}
