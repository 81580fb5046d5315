/**
 * Keeps one version of the page on the device, whole, so that it starts at once and without a network.
 *
 * No page ever gets the files of two versions: a newer worker waits until no page uses the older one. As
 * a page that is reloaded never stops using it, the only page there is makes way for one that asks the newer one in.
 */

// assemble.cmake fills these in: each file has the SHA-256 of what it holds.
const version = "@VERSION@";
/** @type {Record<string, string>} */
const files = { /*@FILES@*/ };

const worker = /** @type {ServiceWorkerGlobalScope} */ (/** @type {unknown} */ (self));
const { registration } = worker;
const cachePrefix = `velmorath ${registration.scope} `;
const cacheName = cachePrefix + version;

worker.addEventListener("install", (event) => event.waitUntil(install()));
worker.addEventListener("activate", (event) => event.waitUntil(activate()));
worker.addEventListener("message", (event) => event.waitUntil(comeIn(event)));
worker.addEventListener("fetch", (event) => {
    const path = pathOf(event.request);
    if (path === null) {
        return;
    }
    event.respondWith(answer(event.request, path));
});

async function install() {
    const responses = await Promise.all(Object.keys(files).map(download));
    const cache = await caches.open(cacheName);
    await Promise.all(responses.map(([path, response]) => cache.put(path, response)));
}

async function activate() {
    const names = await caches.keys();
    const outdated = names.filter((name) => name.startsWith(cachePrefix) && name !== cacheName);
    await Promise.all(outdated.map((name) => caches.delete(name)));
    await worker.clients.claim();
}

// A server in the middle of being updated has files of either version: the digest tells them apart.
/** @param {string} path @returns {Promise<[string, Response]>} */
async function download(path) {
    const response = await fetch(path, { cache: "reload" });
    const bytes = await response.arrayBuffer();
    if (!response.ok || (await digest(bytes)) !== files[path]) {
        throw new Error(`${path} is not what belongs to version ${version}`);
    }
    // A copy, as a page cannot be opened from a response that was redirected.
    return [path, new Response(bytes, { headers: response.headers })];
}

/** @param {ArrayBuffer} bytes */
async function digest(bytes) {
    const hash = new Uint8Array(await crypto.subtle.digest("SHA-256", bytes));
    return Array.from(hash, (byte) => byte.toString(16).padStart(2, "0")).join("");
}

// The name in the list of files of what is asked for, null when that is not in the list.
/** @param {Request} request */
function pathOf(request) {
    const { origin, pathname } = new URL(request.url);
    const address = origin + pathname;
    if (request.method !== "GET" || !address.startsWith(registration.scope)) {
        return null;
    }
    const name = address.slice(registration.scope.length);
    const path = name === "" || name === "index.html" ? "./" : name;
    return Object.hasOwn(files, path) ? path : null;
}

/** @param {Request} request @param {string} path */
async function answer(request, path) {
    const cache = await caches.open(cacheName);
    return (await cache.match(path, { ignoreVary: true })) ?? fetch(request);
}

// Asked to take over, the newer worker says whether it does: only when no page is open but the one that asks.
/** @param {ExtendableMessageEvent} event */
async function comeIn({ ports }) {
    const windows = await worker.clients.matchAll({ type: "window", includeUncontrolled: true });
    const pages = windows.filter(({ url }) => url.startsWith(registration.scope));
    const comes = pages.length === 1 && pages[0].url.endsWith("/update.html");
    ports[0].postMessage(comes);
    if (comes) {
        await worker.skipWaiting();
    }
}
