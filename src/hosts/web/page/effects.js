/** What reaches the user other than by the screen. A browser that lacks a service is silent about it. */

const buzz = 15;
const smallestTablet = 600;

/** What came of a promise does not matter. */
function ignoringFailure(promise) {
    promise?.catch?.(() => {});
}

export class Effects {
    #audio = null;
    #sounds = new Map();
    #pendingPermission = null;

    constructor() {
        // Browsers let a page sound and ask only after the user has touched it.
        for (const name of ["pointerup", "keydown"]) {
            addEventListener(name, () => this.#touched(), { capture: true });
        }
    }

    #touched() {
        if (!this.#audio && globalThis.AudioContext) {
            this.#audio = new AudioContext();
        }
        if (this.#audio?.state === "suspended") {
            ignoringFailure(this.#audio.resume());
        }
        const answer = this.#pendingPermission;
        this.#pendingPermission = null;
        if (answer) {
            Notification.requestPermission().then((state) => answer(state === "granted"), () => answer(false));
        }
    }

    /** The path of a sound among the page's resources. */
    playSound(path) {
        const audio = this.#audio;
        if (!audio) {
            return;
        }
        if (!this.#sounds.has(path)) {
            this.#sounds.set(path, this.#load(path));
        }
        ignoringFailure(this.#sounds.get(path).then((buffer) => {
            const source = audio.createBufferSource();
            source.buffer = buffer;
            source.connect(audio.destination);
            source.start();
        }));
    }

    async #load(path) {
        const response = await fetch(path.slice(1));
        return this.#audio.decodeAudioData(await response.arrayBuffer());
    }

    vibrate() {
        navigator.vibrate?.(buzz);
    }

    setBadge(number) {
        if (number > 0) {
            ignoringFailure(navigator.setAppBadge?.(number));
        } else {
            ignoringFailure(navigator.clearAppBadge?.());
        }
    }

    /** False for addresses that no browser knows what to do with. */
    openAddress(address) {
        const scheme = /^([a-z][a-z0-9+.-]*):/i.exec(address)?.[1].toLowerCase();
        const isPage = scheme === "https" || scheme === "http";
        if (!isPage && scheme !== "mailto") {
            return false;
        }
        const link = document.createElement("a");
        link.href = address;
        if (isPage) {
            link.target = "_blank";
            link.rel = "noopener noreferrer";
        }
        link.click();
        return true;
    }

    /** Model, name, system and version, as far as the browser tells. */
    device() {
        const agent = navigator.userAgent;
        const [, system, version] =
            /(Android|Windows NT|iPhone OS|CPU OS|Mac OS X|CrOS \w+) ?([\d._]*)/.exec(agent) ?? [];
        const model = /iPhone|iPad|Macintosh/.exec(agent)?.[0] ?? navigator.userAgentData?.platform ?? navigator.platform;
        return [model ?? "", "", system ?? navigator.platform ?? "", (version ?? "").replaceAll("_", ".")];
    }

    isTablet() {
        return Math.min(screen.width, screen.height) >= smallestTablet;
    }

    /** Asks at the next touch, when it was not answered before. */
    requestPermission(answer) {
        if (!globalThis.Notification) {
            answer(true);
        } else if (Notification.permission !== "default") {
            answer(Notification.permission === "granted");
        } else {
            this.#pendingPermission = answer;
        }
    }
}
