import { inflateSync } from "node:zlib";

const signatureLength = 8;

/** What a screenshot shows, by whole pixels: eight bits a channel, with or without transparency. */
export class Picture {
    constructor(png) {
        const scanlines = [];
        for (let at = signatureLength; at < png.length; ) {
            const length = png.readUInt32BE(at);
            const type = png.toString("latin1", at + 4, at + 8);
            const chunk = png.subarray(at + 8, at + 8 + length);
            if (type === "IHDR") {
                this.width = chunk.readUInt32BE(0);
                this.height = chunk.readUInt32BE(4);
                this.#channels = { 2: 3, 6: 4 }[chunk[9]];
            } else if (type === "IDAT") {
                scanlines.push(chunk);
            }
            at += length + 12;
        }
        this.#bytes = this.#unfilter(inflateSync(Buffer.concat(scanlines)));
    }

    /** The colour of a pixel, as [red, green, blue]. */
    pixel(x, y) {
        const at = (Math.round(y) * this.width + Math.round(x)) * this.#channels;
        return Array.from(this.#bytes.subarray(at, at + 3));
    }

    #unfilter(filtered) {
        const stride = this.width * this.#channels;
        const bytes = Buffer.alloc(stride * this.height);
        for (let y = 0; y < this.height; y++) {
            const filter = filtered[y * (stride + 1)];
            for (let x = 0; x < stride; x++) {
                const at = y * stride + x;
                const left = x < this.#channels ? 0 : bytes[at - this.#channels];
                const above = y === 0 ? 0 : bytes[at - stride];
                const corner = x < this.#channels || y === 0 ? 0 : bytes[at - stride - this.#channels];
                const predicted = [0, left, above, (left + above) >> 1, nearest(left, above, corner)][filter];
                bytes[at] = filtered[at + y + 1] + predicted;
            }
        }
        return bytes;
    }

    #bytes;
    #channels = 0;
    width = 0;
    height = 0;
}

function nearest(left, above, corner) {
    const estimate = left + above - corner;
    const distances = [left, above, corner].map((value) => Math.abs(estimate - value));
    return [left, above, corner][distances.indexOf(Math.min(...distances))];
}
