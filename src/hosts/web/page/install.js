/**
 * Keeps the page on the device and looks for a newer version of it. To be called when the list is on the screen,
 * as the downloads would delay it. The list works without this, too, but needs the network then.
 */
export async function installWorker() {
    if (!navigator.serviceWorker) {
        return;
    }
    try {
        await navigator.serviceWorker.register(new URL("sw.js", import.meta.url), { updateViaCache: "none" });
    } catch (error) {
        console.warn(`Velmorath will not start without a network: ${error.message}`);
    }
}
