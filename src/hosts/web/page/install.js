const address = new URL("sw.js", import.meta.url).href;

/** A script's address must come from here where the browser watches over them. */
const scriptAddress = globalThis.trustedTypes
    ?.createPolicy("velmorath", { createScriptURL: () => address })
    .createScriptURL("") ?? address;

/** Whether this page was reloaded while a newer version waits to come in. */
export async function isReloadForNewer() {
    const [navigation] = /** @type {PerformanceNavigationTiming[]} */ (performance.getEntriesByType("navigation"));
    const registration = navigation?.type === "reload" ? await navigator.serviceWorker?.getRegistration() : null;
    return Boolean(registration?.waiting);
}

/**
 * Keeps the page on the device and looks for a newer version of it. To be called when the list is on the screen,
 * as the downloads would delay it. The list works without this, too, but needs the network then.
 */
export async function installWorker() {
    if (!navigator.serviceWorker) {
        return;
    }
    try {
        await navigator.serviceWorker.register(scriptAddress, { updateViaCache: "none" });
    } catch (error) {
        console.warn(`Velmorath will not start without a network: ${error.message}`);
    }
}
