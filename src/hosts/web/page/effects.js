/** What reaches the user other than by the screen. A browser that lacks a service is silent about it. */

import { hasHappened, rememberThat } from "./memory.js";
import { part } from "./parts.js";

const buzz = 15;
/** Milliseconds. A sound that comes later than this belongs to nothing any more. */
const latestSound = 300;
/** Milliseconds after which the sound device may rest. */
const silence = 5000;
/** Milliseconds for which a screen reader can look up what was said. */
const hearingTime = 5000;
const askedToNotify = "has asked to notify";

/** What came of a promise does not matter. @param {Promise<unknown> | undefined} promise */
function ignoringFailure(promise) {
    promise?.catch(() => {});
}

export class Effects {
    /** @type {AudioContext | null} */
    #audio = null;
    #silenceTimer = 0;
    /** @type {Map<string, Promise<AudioBuffer>>} */
    #sounds = new Map();
    /** @type {((granted: boolean) => void) | null} */
    #pendingPermission = null;

    constructor() {
        // Browsers let a page sound and ask only after the user has touched it.
        for (const name of ["pointerup", "touchend", "keydown", "click"]) {
            addEventListener(name, () => this.#touched(), { capture: true });
        }
    }

    #touched() {
        if (!this.#audio && globalThis.AudioContext) {
            this.#audio = new AudioContext();
            ignoringFailure(this.#audio.resume());
            this.#restSoon();
        }
        const answer = this.#pendingPermission;
        // Not every key counts as a touch, and a question that comes too long after one is refused unseen.
        if (answer && navigator.userActivation?.isActive !== false) {
            this.#pendingPermission = null;
            rememberThat(askedToNotify);
            ignoringFailure(this.#askToNotify(answer));
        }
    }

    /** @param {(granted: boolean) => void} answer */
    async #askToNotify(answer) {
        const state = await Notification.requestPermission();
        if (state !== "default") {
            answer(state === "granted");
        }
    }

    /** The path of a sound among the page's resources. @param {string} path */
    playSound(path) {
        if (this.#audio) {
            ignoringFailure(this.#play(this.#audio, path, performance.now()));
        }
    }

    /** @param {AudioContext} audio @param {string} path @param {number} asked */
    async #play(audio, path, asked) {
        const sound = this.#sounds.get(path) ?? this.#load(audio, path);
        this.#sounds.set(path, sound);
        const buffer = await sound;
        if (audio.state !== "running") {
            await audio.resume();
        }
        if (performance.now() - asked > latestSound) {
            return;
        }
        const source = audio.createBufferSource();
        source.buffer = buffer;
        source.connect(audio.destination);
        source.start();
        this.#restSoon();
    }

    /** @param {AudioContext} audio @param {string} path */
    async #load(audio, path) {
        try {
            const response = await fetch(path.slice(1));
            return await audio.decodeAudioData(await response.arrayBuffer());
        } catch (error) {
            this.#sounds.delete(path);
            throw error;
        }
    }

    /** A context that runs keeps the machine awake, even when it is silent. */
    #restSoon() {
        clearTimeout(this.#silenceTimer);
        this.#silenceTimer = setTimeout(() => ignoringFailure(this.#audio?.suspend()), silence);
    }

    vibrate() {
        if (navigator.userActivation?.hasBeenActive !== false) {
            navigator.vibrate?.(buzz);
        }
    }

    /**
     * Says what happened to those who do not see it: once, and when they are not listening to something else.
     * @param {string} text
     */
    announce(text) {
        const line = document.createElement("p");
        line.textContent = text;
        part("said").append(line);
        setTimeout(() => line.remove(), hearingTime);
    }

    /** @param {number} number */
    setBadge(number) {
        if (number > 0) {
            ignoringFailure(navigator.setAppBadge?.(number));
        } else {
            ignoringFailure(navigator.clearAppBadge?.());
        }
    }

    /** False for addresses that no browser knows what to do with. @param {string} address */
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

    /**
     * Asks at the next touch. Who gave no answer then is not asked again, and there is none.
     * @param {(granted: boolean) => void} answer
     */
    requestPermission(answer) {
        if (!globalThis.Notification) {
            answer(true);
        } else if (Notification.permission !== "default") {
            answer(Notification.permission === "granted");
        } else if (!hasHappened(askedToNotify)) {
            this.#pendingPermission = answer;
        }
    }
}
