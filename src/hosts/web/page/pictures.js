/** Pictures under the numbers by which the program calls them. */

/** A PNG file has "IHDR" there. */
const laterMark = new TextEncoder().encode("LATE");
const markPlace = 12;
const headLength = 24;

/** Milliseconds until a picture that could not be fetched is asked for again. */
const patience = 5000;

/**
 * What the program gets of a picture that is fetched when it is used: the head of a PNG file, which says its size,
 * and its address.
 * @param {string} address @param {number} width @param {number} height
 */
export function laterPicture(address, width, height) {
    const bytes = new Uint8Array([...new Uint8Array(headLength), ...new TextEncoder().encode(address)]);
    const view = new DataView(bytes.buffer);
    view.setUint32(0, 0x89504e47);
    view.setUint32(4, 0x0d0a1a0a);
    bytes.set(laterMark, markPlace);
    view.setUint32(16, width);
    view.setUint32(20, height);
    return bytes;
}

/** Where the picture is that these bytes stand for; null when they are the picture. @param {Uint8Array} bytes */
function laterAddress(bytes) {
    const isLater = laterMark.every((value, place) => bytes[markPlace + place] === value);
    return isLater ? new TextDecoder().decode(bytes.subarray(headLength)) : null;
}

/** The size that a PNG or JPEG file says it has; null when it is neither. @param {Uint8Array} bytes */
function pictureSize(bytes) {
    const view = new DataView(bytes.buffer, bytes.byteOffset, bytes.byteLength);
    const isPng = bytes.length >= 24 && view.getUint32(0) === 0x89504e47 && view.getUint32(4) === 0x0d0a1a0a;
    const size = isPng ? { width: view.getUint32(16), height: view.getUint32(20) } : jpegSize(view);
    return size && size.width > 0 && size.height > 0 ? size : null;
}

/** @param {DataView} view */
function jpegSize(view) {
    if (view.byteLength < 4 || view.getUint16(0) !== 0xffd8) {
        return null;
    }
    for (let at = 2; at + 9 <= view.byteLength && view.getUint8(at) === 0xff; at += 2 + view.getUint16(at + 2)) {
        const marker = view.getUint8(at + 1);
        // Start of a frame of any kind; three numbers in this range mean something else.
        if (marker >= 0xc0 && marker <= 0xcf && ![0xc4, 0xc8, 0xcc].includes(marker)) {
            return { width: view.getUint16(at + 7), height: view.getUint16(at + 5) };
        }
    }
    return null;
}

export class Pictures {
    /** @type {Map<number, ImageBitmap | null>} */
    #bitmaps = new Map();
    #lastNumber = 0;
    #holdFrames;
    #onArrival;

    /**
     * `holdFrames` gets a promise that is settled when a picture is decoded, or turned out to be none; `onArrival` is
     * called when one has been fetched that others were not to wait for.
     * @param {(decoded: Promise<void>) => void} holdFrames @param {() => void} onArrival
     */
    constructor(holdFrames, onArrival) {
        this.#holdFrames = holdFrames;
        this.#onArrival = onArrival;
    }

    /** Its number and size; null when the bytes are no picture. @param {Uint8Array<ArrayBuffer>} bytes */
    decode(bytes) {
        const size = pictureSize(bytes);
        if (!size) {
            return null;
        }
        const number = ++this.#lastNumber;
        this.#bitmaps.set(number, null);
        const address = laterAddress(bytes);
        if (address) {
            this.#fetch(number, address);
        } else {
            this.#holdFrames(this.#take(number, new Blob([bytes])).catch((error) => {
                console.error(`A picture cannot be read: ${error.message}`);
            }));
        }
        return { number, ...size };
    }

    /** @param {number} number @param {Blob} file */
    async #take(number, file) {
        const bitmap = await createImageBitmap(file);
        if (this.#bitmaps.has(number)) {
            this.#bitmaps.set(number, bitmap);
        } else {
            bitmap.close();
        }
    }

    // For as long as the program has a use for it.
    /** @param {number} number @param {string} address */
    async #fetch(number, address) {
        while (this.#bitmaps.has(number)) {
            try {
                const response = await fetch(address);
                if (!response.ok) {
                    throw new Error(String(response.status));
                }
                await this.#take(number, await response.blob());
                this.#onArrival();
                return;
            } catch (error) {
                console.error(`The picture ${address} cannot be read: ${error.message}`);
            }
            await new Promise((resolve) => {
                setTimeout(resolve, patience);
            });
        }
    }

    /** @param {number} number */
    release(number) {
        this.#bitmaps.get(number)?.close();
        this.#bitmaps.delete(number);
    }

    /** What can be drawn; nothing for a picture that could not be decoded. @param {number} number */
    bitmap(number) {
        return this.#bitmaps.get(number);
    }
}
