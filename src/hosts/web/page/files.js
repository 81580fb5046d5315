/** The program's files: the user's in the browser's storage, its own from where the page comes from. */

import { laterPicture } from "./pictures.js";

/** @import { Storage } from "./storage.js" */

const resourceFolder = "/resources/";
const documentFolder = "/velmorath/Documents/";

/** The tables that may be needed: "pt-BR" is content with "pt". @param {string[]} languages */
function wantedTables(languages) {
    const tags = languages.flatMap((tag) => tag.split("-").map((_, index, parts) => parts.slice(0, index + 1).join("-")));
    return new Set(tags.map((tag) => `strings/${tag}.strings`));
}

/** @param {string} name */
async function load(name) {
    const response = await fetch(`resources/${name}`);
    if (!response.ok) {
        throw new Error(`${name}: ${response.status}`);
    }
    return response;
}

/**
 * Fetches those of the program's own files that it reads from the start: symbols, and texts in these languages.
 * A large picture, whose size is known, is fetched when the program asks for it.
 * @param {string[]} languages
 */
export async function loadResources(languages) {
    const tables = wantedTables(languages);
    /** @type {[string, [number, number] | null][]} */
    const index = Object.entries(await (await load("index.json")).json());
    /** @type {Map<string, Uint8Array | null>} */
    const resources = new Map();
    await Promise.all(index.map(async ([name, size]) => {
        const path = resourceFolder + name;
        if (size) {
            resources.set(path, laterPicture(`resources/${name}`, ...size));
        } else if (name.startsWith("pictures/") || tables.has(name)) {
            resources.set(path, new Uint8Array(await (await load(name)).arrayBuffer()));
        } else {
            resources.set(path, null);
        }
    }));
    return resources;
}

export class Files {
    #resources;
    #storage;
    #holdFrames;
    /** A list was saved. */
    onDocumentSaved = () => {};

    /**
     * @param {Map<string, Uint8Array | null>} resources
     * @param {Storage} storage
     * @param {(written: Promise<void>) => void} holdFrames
     */
    constructor(resources, storage, holdFrames) {
        this.#resources = resources;
        this.#storage = storage;
        this.#holdFrames = holdFrames;
    }

    /** @param {string} path */
    exists(path) {
        return this.#resources.has(path) || this.#storage.exists(path);
    }

    /** Null when there is no such file. @param {string} path */
    read(path) {
        return this.#resources.get(path) ?? this.#storage.read(path);
    }

    /**
     * `done` gets an empty text, or why it failed; before the next frame is shown.
     * @param {string} path @param {Uint8Array} bytes @param {(error: string) => void} done
     */
    replace(path, bytes, done) {
        const written = this.#storage.replace(path, bytes).then(
            () => {
                done("");
                if (path.startsWith(documentFolder)) {
                    this.onDocumentSaved();
                }
            },
            (error) => done(error.message || "the storage refuses it"));
        this.#holdFrames(written);
    }

    /** @param {string} path */
    setAside(path) {
        this.#storage.setAside(path);
    }
}
