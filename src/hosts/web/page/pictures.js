/** Pictures under the numbers by which the program calls them. */

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
    #whileDecoding;

    /**
     * The function gets a promise that is settled when a picture is decoded, or turned out to be none.
     * @param {(decoded: Promise<void>) => void} whileDecoding
     */
    constructor(whileDecoding) {
        this.#whileDecoding = whileDecoding;
    }

    /** Its number and size; null when the bytes are no picture. @param {Uint8Array<ArrayBuffer>} bytes */
    decode(bytes) {
        const size = pictureSize(bytes);
        if (!size) {
            return null;
        }
        const number = ++this.#lastNumber;
        this.#bitmaps.set(number, null);
        const decoded = createImageBitmap(new Blob([bytes]), { imageOrientation: "none" }).then((bitmap) => {
            if (this.#bitmaps.has(number)) {
                this.#bitmaps.set(number, bitmap);
            }
        });
        this.#whileDecoding(decoded);
        return { number, ...size };
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
