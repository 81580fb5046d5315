/**
 * The moment in which a newer version comes in. The page that was reloaded makes way for this one, so that nothing
 * of the older version is in use but this script.
 */

/** Milliseconds between two requests, and for which others may stand in the way: those that close take a moment. */
const pause = 100;
const patience = 1000;

const { serviceWorker } = navigator;
const waiting = (await serviceWorker.getRegistration())?.waiting;

function openList() {
    location.replace("./");
}

/** @param {ServiceWorker} newer */
function ask(newer) {
    const { port1, port2 } = new MessageChannel();
    port1.onmessage = ({ data: comes }) => {
        if (comes || performance.now() < patience) {
            setTimeout(() => ask(newer), pause);
        } else {
            openList();
        }
    };
    newer.postMessage("come in", [port2]);
}

serviceWorker.addEventListener("controllerchange", openList);
if (waiting) {
    ask(waiting);
} else {
    openList();
}
