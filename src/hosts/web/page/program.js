/**
 * The module, and what goes over its border: numbers as they are, texts and files as UTF-8 or plain bytes.
 * Page.h says what the program calls, main.cpp what it can be called with.
 */

/**
 * What the program uses of the page.
 * @typedef {{
 *     screen: import("./screen.js").Screen, painter: import("./painter.js").Painter,
 *     texts: import("./texts.js").Texts, pictures: import("./pictures.js").Pictures,
 *     editor: import("./editor.js").Editor, files: import("./files.js").Files,
 *     clock: import("./clock.js").Clock, locale: typeof import("./locale.js"),
 *     effects: import("./effects.js").Effects,
 *     documents: import("./documents.js").Documents
 * }} Page
 */

const decoder = new TextDecoder("utf-8", { ignoreBOM: true });
const encoder = new TextEncoder();

export class Program {
    /** @type {any} */
    #exports;
    #errorText = "";
    #hasStopped = false;
    /** How many calls are under way, one inside the other. */
    #depth = 0;
    /**
     * Told once, with the program's last words, when it could not go on. Nothing of it runs after that.
     * @type {(details: string) => void}
     */
    onFatal = () => {};

    /** @param {WebAssembly.Module} module @param {Page} page */
    static async load(module, page) {
        const program = new Program();
        const imports = {
            env: { ...imported(program, page), emscripten_notify_memory_growth() {} },
            wasi_snapshot_preview1: program.#system(),
        };
        const instance = await WebAssembly.instantiate(module, imports);
        program.#exports = instance.exports;
        program.#exports._initialize();
        return program;
    }

    /**
     * Calls a function of the program. After its end, nothing happens and the answer is 0.
     * @param {string} name @param {...(number | boolean)} values
     */
    call(name, ...values) {
        if (this.#hasStopped) {
            return 0;
        }
        ++this.#depth;
        try {
            return this.#exports[name](...values);
        } catch (error) {
            this.#fail(error);
            // The part of the program that led to this call must not go on either.
            if (this.#depth > 1) {
                throw error;
            }
            return 0;
        } finally {
            --this.#depth;
        }
    }

    /** @param {Error} error */
    #fail(error) {
        if (!this.#hasStopped) {
            this.#hasStopped = true;
            console.error(error);
            this.onFatal(this.#errorText.trim() || String(error));
        }
    }

    /** Nothing of the program runs any more. */
    stop() {
        this.#hasStopped = true;
    }

    get hasStopped() {
        return this.#hasStopped;
    }

    /**
     * Copies bytes to where the next call finds them. Returns how many they are.
     * @param {Uint8Array} bytes
     */
    send(bytes) {
        const room = this.call("makeRoom", bytes.length);
        if (this.#hasStopped) {
            return 0;
        }
        new Uint8Array(this.#exports.memory.buffer).set(bytes, room);
        return bytes.length;
    }

    /** @param {string} text */
    sendText(text) {
        return this.send(encoder.encode(text));
    }

    /**
     * Valid until the program is called again.
     * @param {number} start @param {number} length @returns {Uint8Array<ArrayBuffer>}
     */
    bytes(start, length) {
        return new Uint8Array(this.#exports.memory.buffer, start, length);
    }

    /** @param {number} start @param {number} count @returns {Float64Array<ArrayBuffer>} */
    numbers(start, count) {
        return new Float64Array(this.#exports.memory.buffer, start, count);
    }

    /** @param {number} start @param {number} length */
    text(start, length) {
        return decoder.decode(this.bytes(start, length));
    }

    /** What the C library wants of an operating system: somewhere to write its last words. */
    #system() {
        /** @type {(descriptor: number, vectors: number, count: number, total: number) => number} */
        const written = (_, vectors, count, total) => {
            const view = new DataView(this.#exports.memory.buffer);
            let sum = 0;
            for (let i = 0; i < count; ++i) {
                const length = view.getUint32(vectors + 8 * i + 4, true);
                this.#errorText += this.text(view.getUint32(vectors + 8 * i, true), length);
                sum += length;
            }
            view.setUint32(total, sum, true);
            return 0;
        };
        return {
            fd_write: written,
            fd_close: () => 0,
            fd_seek: () => 70,
            proc_exit(/** @type {number} */ code) {
                throw new Error(`The program ended with ${code}`);
            },
        };
    }
}

/** Fetches and compiles the module. @param {string} address @returns {Promise<WebAssembly.Module>} */
export async function loadModule(address) {
    const response = await fetch(address);
    if (!response.ok) {
        throw new Error(`${response.url}: ${response.status}`);
    }
    // A server that does not know the type, and an old browser, get the longer way.
    const isTyped = response.headers.get("Content-Type")?.startsWith("application/wasm");
    if (isTyped && WebAssembly.compileStreaming) {
        return WebAssembly.compileStreaming(response);
    }
    return WebAssembly.compile(await response.arrayBuffer());
}

/** @param {Program} program @param {Page} page @returns {Record<string, (...values: any[]) => any>} */
function imported(program, { screen, painter, texts, pictures, editor, files, clock, locale, effects, documents }) {
    const text = (/** @type {number} */ start, /** @type {number} */ length) => program.text(start, length);
    return {
        pageNow: () => performance.now() / 1000,
        pageWallTime: () => Date.now() / 1000,
        pageWakeAt: (time) => clock.wakeAt(time),
        pageWriteLine: (start, length) => console.log(text(start, length)),

        pageWidth: () => screen.width,
        pageHeight: () => screen.height,
        pageScale: () => screen.scale,
        pageReducesMotion: () => screen.reducesMotion,
        pageRequestFrame: () => screen.requestFrame(),
        pagePaint: (start, count) => painter.paint(program.numbers(start, count)),
        pageMeasure(start, length, family, familyLength, size, bold, wrapWidth, result) {
            const font = { family: text(family, familyLength), size, bold: bold !== 0 };
            program.numbers(result, 3).set(texts.measure(text(start, length), font, wrapWidth));
        },
        pageDecodeImage(start, length, size) {
            const picture = pictures.decode(program.bytes(start, length).slice());
            if (picture) {
                program.numbers(size, 2).set([picture.width, picture.height]);
            }
            return picture?.number ?? 0;
        },
        pageReleaseImage: (number) => pictures.release(number),

        pageBeginEditing(start, length, label, labelLength, family, familyLength, size, bold, color, alignment,
            multiline, darkKeyboard, doneKey, tapX, tapY, scrolled) {
            editor.begin({
                text: text(start, length),
                label: text(label, labelLength),
                font: { family: text(family, familyLength), size, bold: bold !== 0 },
                color,
                alignment,
                isMultiline: multiline !== 0,
                hasDarkKeyboard: darkKeyboard !== 0,
                hasDoneKey: doneKey !== 0,
                tap: Number.isNaN(tapX) ? null : { x: tapX, y: tapY },
                scrolled,
            });
        },
        pagePlaceEditor: (x, y, width, height, clipX, clipY, clipWidth, clipHeight, opacity) => editor.place(
            { x, y, width, height }, { x: clipX, y: clipY, width: clipWidth, height: clipHeight }, opacity),
        pageEditorScrolled: () => editor.scrolled,
        pageEndEditing() {
            const typed = editor.end();
            return typed === null ? -1 : program.sendText(typed);
        },

        pageFileExists: (start, length) => files.exists(text(start, length)),
        pageReadFile(start, length) {
            const bytes = files.read(text(start, length));
            return bytes ? program.send(bytes) : -1;
        },
        pageReplaceFile: (path, length, start, size, number) => files.replace(
            text(path, length), program.bytes(start, size),
            (error) => program.call("fileReplaced", number, program.sendText(error))),
        pageSetFileAside: (start, length) => files.setAside(text(start, length)),

        pageLanguages: () => program.sendText(locale.languages().join("\n")),
        pageMediumDate: (time) => program.sendText(locale.mediumDate(time)),

        pagePlaySound: (start, length) => effects.playSound(text(start, length)),
        pageVibrate: () => effects.vibrate(),
        pageAnnounce: (start, length) => effects.announce(text(start, length)),
        pageSetBadge: (number) => effects.setBadge(number),
        pageOpenAddress: (start, length) => effects.openAddress(text(start, length)),
        pageDevice: () => program.sendText(effects.device().join("\n")),
        pageRequestPermission: () => effects.requestPermission(
            (granted) => program.call("permissionAnswered", granted)),

        pageShare: (start, length) => documents.share(text(start, length)).then(
            (how) => program.call("listShared", how)),
        pageSaveDocument: (name, length, start, size) => documents.save(
            text(name, length), program.bytes(start, size).slice()),
        pageOpenDocument: () => documents.open((bytes) => {
            if (bytes) {
                program.call("documentOpened", program.send(bytes));
            } else {
                program.call("documentNotOpened", bytes === undefined);
            }
        }),
    };
}
