/** Lets the newer worker in, then opens the page anew from its files. */
const { serviceWorker } = navigator;
const waiting = (await serviceWorker.getRegistration())?.waiting;
serviceWorker.addEventListener("controllerchange", () => location.reload());
if (waiting) {
    waiting.postMessage("activate");
} else {
    location.reload();
}
